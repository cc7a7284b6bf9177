#pragma once

#include <initializer_list>

#include <signal.h>

/** Keeps signals away from the process for as long as it lives; then they come. */
class held_signals {
public:
    explicit held_signals(std::initializer_list<int> numbers) {
        sigset_t before;
        sigprocmask(SIG_BLOCK, nullptr, &before);
        sigemptyset(&m_held);
        for (const int number : numbers) {
            if (sigismember(&before, number) == 0) { // or else somebody else lets it come
                sigaddset(&m_held, number);
            }
        }
        sigprocmask(SIG_BLOCK, &m_held, nullptr);
    }
    ~held_signals() { sigprocmask(SIG_UNBLOCK, &m_held, nullptr); }
    held_signals(const held_signals&) = delete;
    held_signals& operator=(const held_signals&) = delete;

    /** Keeps them away for good: the process is about to end with a status of its own. */
    void keep() { sigemptyset(&m_held); }

private:
    sigset_t m_held{};
};

/** Those by which a user ends or stops a program. */
inline constexpr std::initializer_list<int> user_signal_numbers = {SIGINT, SIGTERM, SIGHUP, SIGQUIT,
                                                                   SIGTSTP};
