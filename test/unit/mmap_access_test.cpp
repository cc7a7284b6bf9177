#include "reg/mmap_access.hpp"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>

#include "support/process_files.hpp"
#include "support/temp_dir.hpp"

namespace mmap_access_test {

namespace fs = std::filesystem;

using testing::ElementsAreArray;
using testing::Eq;
using testing::HasSubstr;
using testing::KilledBySignal;
using testing::Not;

constexpr unsigned int page = 0x1000;
constexpr unsigned int pages = 4;
constexpr unsigned int last_page = (pages - 1) * page;
constexpr unsigned int all_pages = pages * page;

using memory = std::vector<unsigned int>;

/** Four pages in which every word holds another number. */
memory distinct_words() {
    memory words(all_pages / sizeof(unsigned int));
    std::generate(words.begin(), words.end(), [n = 0x80000000U]() mutable { return n += 0x101; });
    return words;
}

void save(const std::string& path, const memory& words) {
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(words.data()),
               static_cast<std::streamsize>(words.size() * sizeof(unsigned int)));
}

memory saved(const std::string& path) {
    memory words(static_cast<std::size_t>(fs::file_size(path)) / sizeof(unsigned int));
    std::ifstream file(path, std::ios::binary);
    file.read(reinterpret_cast<char*>(words.data()),
              static_cast<std::streamsize>(words.size() * sizeof(unsigned int)));
    return words;
}

/** Four pages of a file stand in for physical memory. */
class MmapAccess : public testing::Test {
protected:
    MmapAccess() {
        save(m_node, m_words);
        fname = m_node.c_str();
    }
    ~MmapAccess() override { fname = m_device; }

    /** The word of `m_words` at an address. */
    unsigned int& word(unsigned int address) { return m_words.at(address / sizeof(unsigned int)); }

    const temp_dir m_folder;
    const std::string m_node = m_folder.file("zeb_mem");
    const char* const m_device = fname;
    memory m_words = distinct_words();
};

using MmapAccessDeathTest = MmapAccess;

TEST_F(MmapAccess, TheNodeIsTheMemoryDeviceUnlessATestChangesIt) {
    EXPECT_STREQ(m_device, "/dev/zeb_mem");
}

class MmapAccessAt : public MmapAccess, public testing::WithParamInterface<unsigned int> {};

TEST_P(MmapAccessAt, ReadsTheWordAndChangesNone) {
    EXPECT_EQ(mmap_read(GetParam()), word(GetParam()));
    EXPECT_EQ(mmap_read(GetParam()), word(GetParam()));
    EXPECT_THAT(saved(m_node), ElementsAreArray(m_words));
}

TEST_P(MmapAccessAt, WritesTheWordAndNoOther) {
    EXPECT_EQ(mmap_write(GetParam(), 0xcafebabe), 0U);
    word(GetParam()) = 0xcafebabe;
    EXPECT_THAT(saved(m_node), ElementsAreArray(m_words));
    EXPECT_EQ(mmap_read(GetParam()), 0xcafebabeU);
}

INSTANTIATE_TEST_SUITE_P(Addresses, MmapAccessAt,
                         testing::Values(0U, 4U, 0x12cU, 0xffcU, page, 2 * page, 2 * page + 0x12c,
                                         last_page + 0xffc),
                         testing::PrintToStringParamName());

TEST_F(MmapAccess, ReadsWhatTheHardwareHoldsAtEachCall) {
    EXPECT_EQ(mmap_read(0x12c), word(0x12c));
    word(0x12c) = 5;
    save(m_node, m_words);
    EXPECT_EQ(mmap_read(0x12c), 5U);
}

TEST_F(MmapAccess, OfTwoWritesToOneAddressTheSecondStays) {
    EXPECT_EQ(mmap_write(page + 0x12c, 1), 0U);
    EXPECT_EQ(mmap_write(page + 0x12c, 0xffffffff), 0U);
    word(page + 0x12c) = 0xffffffff;
    EXPECT_THAT(saved(m_node), ElementsAreArray(m_words));
}

TEST_F(MmapAccess, EveryAccessOpensTheNodeAnew) {
    const std::string old_node = m_folder.file("old");
    const memory untouched = m_words;
    EXPECT_EQ(mmap_write(0x12c, 1), 0U);
    fs::rename(m_node, old_node);
    save(m_node, untouched);
    EXPECT_EQ(mmap_read(0x12c), word(0x12c));
    EXPECT_EQ(mmap_write(0x12c, 2), 0U);
    word(0x12c) = 2;
    EXPECT_THAT(saved(m_node), ElementsAreArray(m_words));
    word(0x12c) = 1;
    EXPECT_THAT(saved(old_node), ElementsAreArray(m_words));
}

TEST_F(MmapAccess, ReachesTheHighestPage) {
    fs::resize_file(m_node, 0x100000000); // takes no room: it is a hole but for the first pages
    EXPECT_EQ(mmap_write(0xfffff12c, 0xcafebabe), 0U);
    EXPECT_EQ(mmap_read(0xfffff12c), 0xcafebabeU);
    std::ifstream file(m_node, std::ios::binary);
    unsigned int found = 0;
    file.seekg(0xfffff12c).read(reinterpret_cast<char*>(&found), sizeof found);
    EXPECT_EQ(found, 0xcafebabeU);
}

TEST_F(MmapAccess, LeavesNoDescriptorAndNoMappingOpen) {
    const auto before = process_files::descriptors();
    for (int i = 0; i < 100; ++i) {
        mmap_read(0x12c);
        EXPECT_EQ(mmap_write(2 * page, 7), 0U);
    }
    EXPECT_EQ(process_files::descriptors(), before);
    EXPECT_THAT(process_files::mappings(), Not(HasSubstr(m_node)));
}

/** How the node is open and mapped at the moment of an access. */
struct moment {
    int flags = 0;                     ///< of the descriptor
    std::vector<std::string> mappings; ///< a line each
};
moment* seen = nullptr;

/** Notes the moment of an access beyond the node's end, then gives the node the missing page. */
void note_and_grow(int) {
    for (const auto& [descriptor, path] : process_files::descriptors()) {
        if (path == fname) {
            seen->flags = process_files::flags(descriptor);
        }
    }
    std::istringstream lines(process_files::mappings());
    for (std::string line; std::getline(lines, line);) {
        if (line.ends_with(fname)) {
            seen->mappings.push_back(line);
        }
    }
    fs::resize_file(fname, all_pages);
}

class MmapAccessMoment : public MmapAccess {
protected:
    MmapAccessMoment() {
        seen = &m_seen;
        struct sigaction noting = {};
        noting.sa_handler = note_and_grow;
        sigaction(SIGBUS, &noting, &m_before);
        fs::resize_file(m_node, last_page); // so that an access to the last page faults once
    }
    ~MmapAccessMoment() override {
        sigaction(SIGBUS, &m_before, nullptr);
        EXPECT_EQ(m_seen.flags & O_ACCMODE, O_RDWR);
        EXPECT_EQ(m_seen.flags & O_SYNC, O_SYNC);
        EXPECT_EQ(m_seen.mappings.size(), 1U);
        unsigned long first = 0, end = 0, offset = 0;
        char rights[5] = "";
        const std::string line = m_seen.mappings.empty() ? "" : m_seen.mappings.front();
        EXPECT_EQ(std::sscanf(line.c_str(), "%lx-%lx %4s %lx", &first, &end, rights, &offset), 4);
        EXPECT_EQ(end - first, page);
        EXPECT_STREQ(rights, "rw-s");
        EXPECT_EQ(offset, last_page);
    }

private:
    moment m_seen;
    struct sigaction m_before = {};
};

TEST_F(MmapAccessMoment, AReadMapsOneSharedPageOfTheNodeOpenedSynchronously) {
    EXPECT_EQ(mmap_read(last_page + 0x12c), 0U);
}

TEST_F(MmapAccessMoment, AWriteMapsOneSharedPageOfTheNodeOpenedSynchronously) {
    EXPECT_EQ(mmap_write(last_page + 0x12c, 7), 0U);
    EXPECT_EQ(saved(m_node).at((last_page + 0x12c) / sizeof(unsigned int)), 7U);
}

/** The line that tells of a failed call. */
std::string report(const std::string& action, const std::string& address, int error) {
    return action + " " + fname + " for address " + address + " failed: " + std::strerror(error) +
           "\n";
}

TEST_F(MmapAccessDeathTest, AMissingNodeEndsTheProcessWithOneLine) {
    fs::remove(m_node);
    EXPECT_EXIT(mmap_read(0x18428194), KilledBySignal(SIGABRT),
                Eq(report("open", "0x18428194", ENOENT)));
    EXPECT_EXIT(mmap_write(0x12c, 7), KilledBySignal(SIGABRT),
                Eq(report("open", "0x0000012c", ENOENT)));
    EXPECT_FALSE(fs::exists(m_node));
}

TEST_F(MmapAccessDeathTest, ANodeThatMayNotBeWrittenEndsTheProcessEvenForARead) {
    fs::remove(m_node);
    fs::create_directory(m_node); // which nobody, root included, opens for writing
    EXPECT_EXIT(mmap_read(0), KilledBySignal(SIGABRT), Eq(report("open", "0x00000000", EISDIR)));
    EXPECT_EXIT(mmap_write(0, 7), KilledBySignal(SIGABRT),
                Eq(report("open", "0x00000000", EISDIR)));
}

TEST_F(MmapAccessDeathTest, ARefusedMappingEndsTheProcessWithOneLine) {
    fname = "/dev/null"; // opens for reading and writing, but has no memory
    EXPECT_EXIT(mmap_read(0xfffffffc), KilledBySignal(SIGABRT),
                Eq(report("map", "0xfffffffc", ENODEV)));
    EXPECT_EXIT(mmap_write(0x12c, 7), KilledBySignal(SIGABRT),
                Eq(report("map", "0x0000012c", ENODEV)));
}

} // namespace mmap_access_test
