#pragma once

#include <list>

/**
 * An ownership list: heap objects handed over by pointer and deleted, in the order in which they
 * were added, when the list is destroyed. Nothing is taken out before that.
 *
 * @tparam T an owned pointer type, such as `reg_info*`; null elements are allowed and skipped.
 *           The class pointed to has a virtual destructor and is complete where the list is
 *           destroyed.
 */
template <class T>
class regctl_garbages {
public:
    regctl_garbages() = default;
    regctl_garbages(const regctl_garbages&) = delete;
    regctl_garbages& operator=(const regctl_garbages&) = delete;

    virtual ~regctl_garbages();

    std::list<T> m_list;
};

template <class T>
regctl_garbages<T>::~regctl_garbages() {
    for (T object : m_list) {
        delete object;
    }
}
