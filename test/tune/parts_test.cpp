#include <csignal>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include "property/property_group.hpp"
#include "property/property_register.hpp"
#include "support/fake_property.hpp"
#include "support/limited.hpp"
#include "support/open_files.hpp"
#include "support/temp_dir.hpp"
#include "support/text_file.hpp"
#include "tune/board/child.hpp"
#include "tune/board/lock.hpp"
#include "tune/board/shared_array.hpp"
#include "tune/knob/facts.hpp"
#include "tune/knob/knobs.hpp"
#include "tune/knob/tuning.hpp"
#include "tune/knob/value_text.hpp"
#include "tune/text/mistake.hpp"
#include "tune/text/read_text.hpp"
#include "tune/text/table.hpp"
#include "tune/text/whole_file.hpp"

// The parts of brisel-tune that need no board.

namespace tune_parts_test {

using testing::Optional;
using testing::ThrowsMessage;

TEST(RunInChild, DoesItsWorkInAProcessOfItsOwn) {
    const shared_array<pid_t> process(1);
    int untouched = 1;
    EXPECT_EQ(run_in_child([&] {
                  process[0] = getpid();
                  untouched = 2;
              }),
              std::nullopt);
    EXPECT_NE(process[0], 0);
    EXPECT_NE(process[0], getpid());
    EXPECT_EQ(untouched, 1);
}

TEST(RunInChild, LeavesNoFileOpen) {
    const std::ptrdiff_t before = open_files();
    run_in_child([] {});
    EXPECT_EQ(open_files(), before);
}

TEST(RunInChild, LeavesNoCore) {
    const shared_array<rlim_t> limit(1);
    EXPECT_EQ(run_in_child([&] {
                  rlimit now{1, 1};
                  getrlimit(RLIMIT_CORE, &now);
                  limit[0] = now.rlim_cur + now.rlim_max;
              }),
              std::nullopt);
    EXPECT_EQ(limit[0], 0U);
}

TEST(RunInChild, TellsWhyItsWorkWasNotDone) {
    EXPECT_THAT(run_in_child([] { throw std::runtime_error("no luck"); }),
                Optional(std::string("no luck")));
    EXPECT_THAT(run_in_child([] { throw std::runtime_error(""); }),
                Optional(testing::StartsWith("it ended with status ")));
    EXPECT_THAT(run_in_child([] {
                    std::signal(SIGBUS, SIG_DFL); // where a sanitizer has it
                    raise(SIGBUS);
                }),
                Optional(std::string("no register answers there (bus error)")));
    EXPECT_THAT(run_in_child([] { raise(SIGKILL); }),
                Optional(std::string("it ended with status 9")));
    EXPECT_THAT(run_in_child([] { std::_Exit(3); }),
                Optional(std::string("it ended with status 768")));
}

TEST(RunInChild, NeedsAChild) {
    std::optional<std::string> why;
    {
        const limited no_files(RLIMIT_NOFILE, 3);
        why = run_in_child([] {});
    }
    EXPECT_EQ(why, "no child process: Too many open files");
}

TEST(LockHolder, IsTheOneThatTheKernelNamesFirst) {
    const std::string locks = "1: FLOCK  ADVISORY  WRITE 12 08:02:56 0 EOF\n"
                              "2: FLOCK  ADVISORY  WRITE 34 08:02:5 0 EOF\n"
                              "2: -> FLOCK  ADVISORY  WRITE 56 08:02:5 0 EOF\n";
    const auto holder_of = [&](unsigned minor, ino_t inode) {
        struct stat file {};
        file.st_dev = makedev(8, minor);
        file.st_ino = inode;
        return lock_holder(locks, file);
    };
    EXPECT_EQ(holder_of(2, 56), ", process 12");
    EXPECT_EQ(holder_of(2, 5), ", process 34");
    EXPECT_EQ(holder_of(2, 6), "");
    EXPECT_EQ(holder_of(3, 5), ""); // of another file system
}

TEST(JsonText, HasItsQuotesMarked) {
    EXPECT_EQ(json_text("a \"b\" \\ c"), R"("a \"b\" \\ c")");
}

TEST(SharedArray, NeedsMemory) {
    EXPECT_THROW(shared_array<std::uint32_t>(std::numeric_limits<std::size_t>::max() / 4 - 1),
                 mistake);
}

TEST(ReadText, TakesTheLastByteOfAFile) {
    const temp_dir folder;
    const std::string path = folder.file("text");
    for (const std::size_t size : {0U, 1U, 4095U, 4096U, 4097U, 8193U}) { // it reads 4096 at a time
        write_text(path, std::string(size, 'x'));
        EXPECT_EQ(read_text(path).size(), size);
    }
}

TEST(WholeFile, LeavesTheFileAsItWasWhenItCannotBeWritten) {
    const temp_dir dir;
    const std::string path = dir.file("tuning");
    write_text(path, "before");
    std::signal(SIGXFSZ, SIG_IGN);
    {
        const limited no_room(RLIMIT_FSIZE, 2);
        EXPECT_THAT([&] { write_whole(path, "after"); },
                    ThrowsMessage<mistake>(path + ": File too large"));
    }
    EXPECT_EQ(text_of(path), "before");
    write_whole(path, "after");
    EXPECT_EQ(text_of(path), "after");
    EXPECT_THAT([&] { write_whole(dir.file("."), ""); },
                ThrowsMessage<mistake>(dir.file(".") + ": not a regular file"));
    EXPECT_THAT([&] { write_whole(dir.file("none/tuning"), ""); },
                ThrowsMessage<mistake>(dir.file("none/tuning") + ": No such file or directory"));
}

TEST(WholeFile, KeepsWhatTheFileWas) {
    const temp_dir dir;
    write_text(dir.file("tuning"), "before");
    std::filesystem::permissions(dir.file("tuning"), std::filesystem::perms::owner_all);
    std::filesystem::create_symlink("tuning", dir.file("link"));
    write_whole(dir.file("link"), "after");
    EXPECT_TRUE(std::filesystem::is_symlink(dir.file("link")));
    EXPECT_EQ(text_of(dir.file("tuning")), "after");
    EXPECT_EQ(std::filesystem::status(dir.file("tuning")).permissions(),
              std::filesystem::perms::owner_all);
}

TEST(WholeFile, IsRefusedWhereItsPathIsTooLong) {
    const temp_dir dir;
    const std::filesystem::path here = std::filesystem::current_path();
    std::filesystem::current_path(dir.path());
    const std::string name(250, 'd');
    for (int depth = 0; depth < 20; ++depth) {
        ASSERT_EQ(mkdir(name.c_str(), 0700), 0);
        ASSERT_EQ(chdir(name.c_str()), 0);
    }
    write_whole("tuning", "before");
    EXPECT_THAT([] { write_whole("tuning", "after"); },
                ThrowsMessage<mistake>("tuning: File name too long"));
    std::filesystem::current_path(here);
}

TEST(Knobs, EveryCodeOfEveryKnobIsReadAsItIsShown) {
    const knobs all;
    for (const knob& k : all.all()) {
        if (k.kind == knob_kind::set) {
            continue;
        }
        const std::uint32_t last = std::min(k.most(), 300U);
        for (std::uint32_t code = k.least(); code <= last; ++code) {
            EXPECT_THAT(parse_value(k, to_text(k, code)), testing::ElementsAre(code)) << k.name();
        }
        EXPECT_THAT(parse_value(k, to_text(k, k.most())), testing::ElementsAre(k.most()));
    }
}

TEST(Knobs, EveryDelayIsReadAsItIsShown) {
    const knobs all;
    const knob& lane = all.named("orlin-ddra-read0::dq3");
    for (std::uint32_t code = 0; code < 128; ++code) {
        EXPECT_THAT(parse_value(lane, to_delay(code)), testing::ElementsAre(code));
    }
}

TEST(Knobs, ValuesAreWholeNumbersWithNothingAroundThem) {
    const knobs all;
    const auto refused = [&](const std::string& name, const std::string& text) {
        EXPECT_THROW(parse_value(all.named(name), text), mistake) << text;
    };
    for (const char* text : {"", " 1", "1 ", "-1", "+1", "0x", "0xg", "1.0", "4294967296", "d+1",
                             "raw:1", "{1}", "99999999999999999999"}) {
        refused("i2c0-delay::sda-delay", text);
    }
    for (const char* text : {"d", "d+", "d5", "d+64", "d-64", "d+-1", "128", "raw:1"}) {
        refused("orlin-ddra-read0::dq3", text);
    }
    for (const char* text : {"raw:16", "raw:", "raw:-1", "raw:1", "1", "d+1"}) {
        refused("orlin-ddra::odt", text);
    }
    for (const char* text : {"1", "256"}) {
        refused("mmc::rdqs", text);
    }
    refused("cpu_regulator::microvolts", "2147483648");
    refused("orlin-ddra-read0::dq", "{1,2,3,4,5,6,7,}");
    refused("orlin-ddra-read0::dq", "{");
}

TEST(Knobs, FactsAreKnownOfEveryKnob) {
    const knobs all;
    for (const knob& k : all.all()) {
        const knob_facts facts = facts_of(k);
        for (const std::string& text :
             {facts.kind, facts.legal, facts.unit, facts.address, facts.bits, facts.help}) {
            EXPECT_NE(text, "") << k.name();
        }
    }
    const knob_facts lane = facts_of(all.named("pelune-ddr-write3::dq8"));
    EXPECT_EQ(lane.address, "0x1a4191a0 with 0x815 in 0x1a41912c");
    EXPECT_EQ(lane.help, "delay of a DQ lane");
    const knob_facts slice = facts_of(all.named("orlin-ddra1::scl"));
    EXPECT_EQ(slice.address, "0x1842813c with 0x008 in 0x1842812c");
    EXPECT_EQ(slice.bits, "31..0");
    EXPECT_EQ(facts_of(all.named("pcie-link::state-ro")).kind, "read-only field");
    EXPECT_THAT(parse_value(all.named("mmc::rdqs"), "0X1f"), testing::ElementsAre(31));
    EXPECT_EQ(facts_of(all.named("mmc::rdqs")).address, "/sys/kernel/debug/mmc0/rdqs");
    EXPECT_EQ(facts_of(all.named("orlin-ddra-read0::dq")).address,
              "orlin-ddra-read0::dq0 to orlin-ddra-read0::dq7");
}

// The catalogue has no such fields, but for read-only ones.
TEST(Tuning, DoesNotTakeTwoLinesForTheSameBits) {
    static reg_info shared("shared", 0x1000,
                           {new reg_bitmask(7, 4, "high", "no desc"),
                            new reg_bitmask(5, 0, "low", "no desc"),
                            new reg_bitmask(9, 8, "apart", "no desc")},
                           false);
    property_register::register_as_property(property_group::register_property_group("shared"),
                                            &shared);
    const knobs all;
    EXPECT_THAT(
        [&] { parse_tuning(all, "shared::high = 1\nshared::low = 1\n", "file"); },
        ThrowsMessage<mistake>("file:2: shared::low shares bits with shared::high at file:1"));
    EXPECT_THAT(
        [&] { parse_tuning(all, "shared::low = 1\nshared::high = 1\n", "file"); },
        ThrowsMessage<mistake>("file:2: shared::high shares bits with shared::low at file:1"));
    EXPECT_THAT(parse_tuning(all, "shared::high = 1\nshared::apart = 1\n", "file"),
                testing::SizeIs(2));
}

/** A field and a register of kinds that nobody knows. */
class other_field : public reg_bitmask {
    using reg_bitmask::reg_bitmask;
};
class other_register : public reg_info {
    using reg_info::reg_info;
};

TEST(UnknownKinds, AreRefused) {
    fake_property other("other");
    EXPECT_THAT([&] { knob(other, "group"); },
                ThrowsMessage<std::logic_error>("unknown kind of property: other"));

    property_group group("group");
    reg_info plain("plain", 0x1000, {new other_field(3, 0, "field", "no desc")}, false);
    property_register::register_as_property(&group, &plain);
    EXPECT_THAT([&] { knob(*group.m_properties.at("plain::field"), "group"); },
                ThrowsMessage<std::logic_error>("unknown kind of field: field"));

    other_register other_reg("reg", 0x1000, {new reg_bitmask(3, 0, "field", "no desc")}, false);
    property_register::register_as_property(&group, &other_reg);
    const knob k(*group.m_properties.at("reg::field"), "group");
    EXPECT_THAT([&] { facts_of(k); },
                ThrowsMessage<std::logic_error>("unknown kind of register: reg"));
}

} // namespace tune_parts_test
