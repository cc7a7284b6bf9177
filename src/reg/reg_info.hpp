#pragma once

#include <atomic>
#include <initializer_list>
#include <map>
#include <string>
#include <utility>

#include "base/put.hpp"
#include "reg/reg_subval.hpp"
#include "reg/regctl_garbages.hpp"

/**
 * One 32-bit hardware register at a physical address, with a cached word and named fields.
 *
 * The first `load` reads the hardware, later ones return the cache. `store` changes only
 * the cache. `commit` writes the cache to the hardware and reads the register back, so that the
 * cache holds what the hardware kept. None of them can fail: an access that is impossible ends
 * the process (see reg/mmap_access.hpp).
 */
class reg_info {
public:
    /**
     * @tparam T      field kind of the list, a subclass of `reg_subval`
     * @param name    first half of the name of every property of the register
     * @param address physical byte address of the word, a multiple of 4
     * @param fields  the fields, not owned; of two with the same name the later one counts
     * @param garbage true hands the object to `info_garbages`, which then owns it
     */
    template <class T>
    reg_info(std::string name, unsigned int address, std::initializer_list<T*> fields,
             bool garbage);
    reg_info(const reg_info&) = delete;
    reg_info& operator=(const reg_info&) = delete;

    /** Reads the register into the cached word: one hardware read. */
    virtual void _read();

    virtual ~reg_info();

    /** Writes the cached word to the hardware and reads it back: one write, one read. */
    virtual void commit();

    /**
     * The register's word, read from the hardware at the first call only.
     * @param field the field that asks; it tells register kinds with one word per field
     *              which word is meant
     */
    virtual unsigned int load(reg_subval* field);

    /**
     * Replaces the cached word; no hardware access.
     * @param field as for `load`
     */
    virtual void store(reg_subval* field, unsigned int word);

    /** Hands the register to `info_garbages`, which from then on owns it. */
    void add_garbage();

    const std::string m_name;
    const unsigned int m_addr;

protected:
    /** The cached word: meaningless before the first read. Every access is sequentially
     *  consistent, so that it is never moved across a hardware access. */
    std::atomic<unsigned int> m_value{};

public:
    /** The fields by name; not owned. */
    std::map<std::string, reg_subval*> m_subvals;

protected:
    /** True once `load` has filled the cache. */
    bool m_loaded;
};

template <class T>
reg_info::reg_info(std::string name, unsigned int address, std::initializer_list<T*> fields,
                   bool garbage)
    : m_name(std::move(name)), m_addr(address), m_loaded(false) {
    auto place = m_subvals.end();
    for (T* field : fields) {
        put(m_subvals, place, field->get_name(), field) = field;
    }
    if (garbage) {
        add_garbage();
    }
}

/** Owns every register that was built with the garbage flag. Destroyed before `subval_garbages`. */
inline regctl_garbages<reg_info*> info_garbages;
