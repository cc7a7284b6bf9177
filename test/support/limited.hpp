#pragma once

#include <sys/resource.h>

/** A limit of this process, for as long as it lives. */
class limited {
public:
    limited(__rlimit_resource what, rlim_t most) : m_what(what) {
        getrlimit(what, &m_before);
        const rlimit limit{most, m_before.rlim_max};
        setrlimit(what, &limit);
    }
    ~limited() { setrlimit(m_what, &m_before); }
    limited(const limited&) = delete;
    limited& operator=(const limited&) = delete;

private:
    __rlimit_resource m_what;
    rlimit m_before{};
};
