#pragma once

/**
 * As long as it lives, SIGINT, SIGTERM, SIGHUP and SIGQUIT are noted instead of ending the process,
 * and they, SIGTSTP and SIGCHLD come only where it waits here. One of the four that was ignored
 * stays so.
 */
class user_signals {
public:
    user_signals();
    ~user_signals();
    user_signals(const user_signals&) = delete;
    user_signals& operator=(const user_signals&) = delete;

    /** The signal that came first, 0 for none. */
    static int noted();

    /** Lets those come that wait, a stop, too. */
    static void let_come();

    /**
     * Waits until a descriptor is ready, a child has ended, a signal has come, or the time is over.
     * A stop from the terminal waits on.
     * @param fd      to be read; -1 for none
     * @param seconds at most
     */
    static void wait(int fd, double seconds);

    /** Waits for a time, or until one of the three has come. */
    static void wait_for(double seconds);
};
