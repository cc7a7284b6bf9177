#pragma once

#include <atomic>
#include <csignal>
#include <string>

#include <pthread.h>
#include <unistd.h>

#include "support/text_file.hpp"

/**
 * Lets another thread interrupt the blocking system calls of the one that makes the object: as long
 * as it lives, SIGUSR1 is caught, without SA_RESTART.
 */
class interruptions {
public:
    interruptions() {
        struct sigaction action {};
        action.sa_handler = [](int) { ++s_caught; };
        sigaction(SIGUSR1, &action, &m_before);
    }
    ~interruptions() { sigaction(SIGUSR1, &m_before, nullptr); }
    interruptions(const interruptions&) = delete;
    interruptions& operator=(const interruptions&) = delete;

    /** Returns when the thread waits in a call. */
    void wait_for_call() const {
        while (text_of(m_status).find("\nState:\tS") == std::string::npos) {
            usleep(100);
        }
    }

    /** Interrupts the call in which the thread waits, or is about to wait; returns when that has
     * ended. */
    void interrupt() const {
        wait_for_call();
        const int caught = s_caught;
        pthread_kill(m_thread, SIGUSR1);
        while (s_caught == caught) {
            usleep(100);
        }
    }

private:
    static inline std::atomic<int> s_caught{0};

    pthread_t m_thread = pthread_self();
    std::string m_status = "/proc/self/task/" + std::to_string(gettid()) + "/status";
    struct sigaction m_before {};
};
