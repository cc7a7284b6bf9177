#pragma once

#include <atomic>
#include <csignal>
#include <string>

#include <gtest/gtest.h>

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
        sigaction(SIGUSR1, &action, &m_action_before);
        sigset_t caught;
        sigemptyset(&caught);
        sigaddset(&caught, SIGUSR1);
        pthread_sigmask(SIG_UNBLOCK, &caught, &m_mask_before);
    }
    ~interruptions() {
        pthread_sigmask(SIG_SETMASK, &m_mask_before, nullptr);
        sigaction(SIGUSR1, &m_action_before, nullptr);
    }
    interruptions(const interruptions&) = delete;
    interruptions& operator=(const interruptions&) = delete;

    /** Returns when the thread sleeps: for a thread that only makes calls, in one of them. */
    void wait_for_call() const {
        wait_until([this] { return text_of(m_status).find("\nState:\tS") != std::string::npos; });
    }

    /** Interrupts the call in which the thread sleeps, or is about to; returns when that has ended.
     */
    void interrupt() const {
        wait_for_call();
        const int caught = s_caught;
        pthread_kill(m_thread, SIGUSR1);
        wait_until([caught] { return s_caught != caught; });
    }

private:
    /** Gives up after half a minute or more: the test has failed then. */
    template <typename Condition>
    static void wait_until(Condition holds) {
        for (int tries = 0; !holds(); ++tries) {
            ASSERT_LT(tries, 300000) << "the other thread does not come to where it is waited for";
            usleep(100);
        }
    }

    static inline std::atomic<int> s_caught{0};

    pthread_t m_thread = pthread_self();
    std::string m_status = "/proc/self/task/" + std::to_string(gettid()) + "/status";
    struct sigaction m_action_before {};
    sigset_t m_mask_before{};
};
