#include "cli/texts.hpp"
#include "tune/tune_case.hpp"

const std::vector<tune_case> fault_cases_of_tune = {
    {.name = "NodeThatCannotBeOpenedIsOneErrorBeforeAnythingElse",
     .args = {"get", "mac", "mmc"},
     .board = board_setup().fault("no-open /dev/zeb_mem EACCES"),
     .err = "cannot open /dev/zeb_mem: Permission denied\n",
     .status = 2},
    {.name = "FilesNeedNoNode",
     .args = {"get", "mmc"},
     .board = board_setup().fault("no-open /dev/zeb_mem EACCES"),
     .out = "mmc::rdqs = 40\n"},
    {.name = "PropertyThatCannotBeReadDoesNotStopTheOthers",
     .args = {"get", "mac"},
     .board = board_setup().fault("no-map 0x10040008").fault("no-map 0x10040008"),
     .err =
         "mac-rx::delay: map /dev/zeb_mem for address 0x10040008 failed: Operation not permitted\n"
         "mac-tx::delay: map /dev/zeb_mem for address 0x10040004 failed: Operation not permitted\n",
     .status = 1},
    {.name = "RegisterThatCannotBeReadIsReportedOnce",
     .args = {"apply", tuning_file},
     .tuning = "i2c0-delay::sda-delay = 1\ni2c0-delay::scl-delay = 2\nmmc::rdqs = 50\n",
     .board = board_setup().fault("no-map 0x10090110"),
     .err = "i2c0-delay::sda-delay: map /dev/zeb_mem for address 0x10090110 failed: Operation not "
            "permitted\nnothing was written\n",
     .status = 1,
     .files = {{rdqs_file, "40\n"}}},
    {.name = "LineAboutDebugfsIsShownWhereItIsAskedFor",
     .args = {"get", "mmc", "cpu_regulator::microvolts"},
     .board = board_setup().fault("no-open " + rdqs_file),
     .out = "cpu_regulator::microvolts = 1000000\n",
     .err = "mmc::rdqs: /sys/kernel/debug/mmc0/rdqs: No such file or directory\n",
     .status = 1},
    {.name = "AndNowhereElse",
     .args = {"get", "cpu_regulator::microvolts"},
     .board = board_setup().fault("no-open " + rdqs_file),
     .out = "cpu_regulator::microvolts = 1000000\n"},
    {.name = "VoltageThatIsNoNumber",
     .args = {"get", "cpu_regulator::microvolts"},
     .board = board_setup().file("/sys/class/regulator/regulator.1/microvolts", "much\n"),
     .err = "cpu_regulator::microvolts: /sys/class/regulator/regulator.1/microvolts holds 'much', "
            "which is not 0 to 2147483647\n",
     .status = 1},
    {.name = "VoltageWithAUnit",
     .args = {"get", "cpu_regulator::microvolts"},
     .board = board_setup().file("/sys/class/regulator/regulator.1/microvolts", "900000 uV"),
     .err = "cpu_regulator::microvolts: /sys/class/regulator/regulator.1/microvolts holds '900000 "
            "uV', which is not 0 to 2147483647\n",
     .status = 1},
    {.name = "LargestVoltage",
     .args = {"get", "cpu_regulator::microvolts"},
     .board = board_setup().file("/sys/class/regulator/regulator.1/microvolts", "2147483647"),
     .out = "cpu_regulator::microvolts = 2147483647\n"},
    {.name = "VoltageThatIsTooLarge",
     .args = {"get", "cpu_regulator::microvolts"},
     .board = board_setup().file("/sys/class/regulator/regulator.1/microvolts", "2147483648"),
     .err = "cpu_regulator::microvolts: /sys/class/regulator/regulator.1/microvolts holds "
            "'2147483648', which is not 0 to 2147483647\n",
     .status = 1},
    {.name = "RdqsOutOfRange",
     .args = {"get", "mmc::rdqs"},
     .board = board_setup().file(rdqs_file, "1\n"),
     .err = "mmc::rdqs: " + rdqs_file + " holds '1', which is not 2 to 255\n",
     .status = 1},
    {.name = "VoltageThatIsMissing",
     .args = {"get", "cpu_regulator::microvolts"},
     .board = board_setup().fault("no-open /sys/class/regulator/regulator.1/microvolts"),
     .err =
         "cpu_regulator::microvolts: /sys/class/regulator/regulator.1/microvolts: No such file or "
         "directory\n",
     .status = 1},
    {.name = "WhatDoesNotReadBackIsPutBackInReverse",
     .args = {"set", "mac-tx::delay=4", "mac-rx::delay=6"},
     .board = board_setup().fault("stuck mac-rx::delay 2"),
     .err = "mac-rx::delay was set to 6 and holds 4\n"
            "all was put back:\n"
            "mac-rx::delay = 5 # as before\n"
            "mac-tx::delay = 2 # as before\n",
     .status = 1,
     .accesses = {"read 0x10040004 0x00200001", "read 0x10040008 0x00500001",
                  "read 0x10040004 0x00200001", "write 0x10040004 0x00400001",
                  "read 0x10040004 0x00400001", "read 0x10040004 0x00400001",
                  "read 0x10040008 0x00500001", "write 0x10040008 0x00600001",
                  "read 0x10040008 0x00400001", "read 0x10040008 0x00400001",
                  "read 0x10040008 0x00400001", "write 0x10040008 0x00500001",
                  "read 0x10040008 0x00500001", "read 0x10040008 0x00500001",
                  "read 0x10040004 0x00400001", "write 0x10040004 0x00200001",
                  "read 0x10040004 0x00200001", "read 0x10040004 0x00200001"}},
    {.name = "WhatCannotBeReadBackIsPutBack",
     .args = {"set", "mac-tx::delay=4"},
     .board = board_setup().fault("fail mmap 5"),
     .err =
         "mac-tx::delay: map /dev/zeb_mem for address 0x10040004 failed: Operation not permitted\n"
         "all was put back:\n"
         "mac-tx::delay = 2 # as before\n",
     .status = 1,
     .accesses = {"read 0x10040004 0x00200001", "read 0x10040004 0x00200001",
                  "write 0x10040004 0x00400001", "read 0x10040004 0x00400001",
                  "read 0x10040004 0x00400001", "write 0x10040004 0x00200001",
                  "read 0x10040004 0x00200001", "read 0x10040004 0x00200001"}},
    {.name = "SetThatCannotBeReadIsReportedOnce",
     .args = {"get", lanes},
     .board = board_setup().fault("no-map 0x1a419000"),
     .err = "pelune-ddr-read1::dq: map /dev/zeb_mem for address 0x1a41912c failed: Operation not "
            "permitted\n",
     .status = 1},
    {.name = "VoltageThatIsNotTakenIsRefused",
     .args = {"set", "cpu_regulator::microvolts=900000"},
     .board = board_setup().fault("no-write /sys/class/regulator/regulator.1/microvolts"),
     .err = "cpu_regulator::microvolts: /sys/class/regulator/regulator.1/microvolts: Permission "
            "denied\n"
            "all was put back:\n"
            "cpu_regulator::microvolts = 1000000 # as before\n",
     .status = 1},
    {.name = "RdqsThatCannotBeWrittenIsRefused",
     .args = {"set", "mmc::rdqs=50"},
     .board = board_setup().fault("no-write " + rdqs_file),
     .err = "mmc::rdqs: " + rdqs_file +
            ": Permission denied\n"
            "all was put back:\n"
            "mmc::rdqs = 40 # as before\n",
     .status = 1},
    {.name = "RegisterThatCannotBeReadIsReportedOnceByGet",
     .args = {"get", "i2c0-delay::*"},
     .board = board_setup().fault("no-map 0x10090110 EACCES"),
     .err = "i2c0-delay::scl-delay: map /dev/zeb_mem for address 0x10090110 failed: Permission "
            "denied\n",
     .status = 1},
    {.name = "FieldsThatCannotBeReadAnyMoreAreNotTakenForWhatTheyHeld",
     .args = {"set", "i2c0-delay::sda-delay=1", "i2c0-delay::scl-delay=2"},
     .board = board_setup().fault("fail mmap 3+"),
     .err = "i2c0-delay::sda-delay: map /dev/zeb_mem for address 0x10090110 failed: Operation not "
            "permitted\nnot everything could be put back:\n"
            "i2c0-delay::sda-delay cannot be read: map /dev/zeb_mem for address 0x10090110 failed: "
            "Operation not permitted # not put back to 2\n"
            "i2c0-delay::scl-delay cannot be read: map /dev/zeb_mem for address 0x10090110 failed: "
            "Operation not permitted # not put back to 1\n",
     .status = 2,
     .accesses = any_accesses},
    {.name = "WhatCannotBePutBackIsNamed",
     .args = {"set", "mac-tx::delay=4", "mac-rx::delay=6"},
     .board = board_setup().fault("fail mmap 9+"),
     .err =
         "mac-rx::delay: map /dev/zeb_mem for address 0x10040008 failed: Operation not permitted\n"
         "not everything could be put back:\n"
         "mac-rx::delay cannot be read: map /dev/zeb_mem for address 0x10040008 failed: "
         "Operation not permitted # not put back to 5\n"
         "mac-tx::delay cannot be read: map /dev/zeb_mem for address 0x10040004 failed: "
         "Operation not permitted # not put back to 2\n",
     .status = 2,
     .accesses = {"read 0x10040004 0x00200001", "read 0x10040008 0x00500001",
                  "read 0x10040004 0x00200001", "write 0x10040004 0x00400001",
                  "read 0x10040004 0x00400001", "read 0x10040004 0x00400001",
                  "read 0x10040008 0x00500001", "write 0x10040008 0x00600001"}},
    {.name = "DifferenceThatCannotBeReadIsOneInAnyCase",
     .args = {"diff", tuning_file},
     .tuning = "mac-tx::delay = 2\nmac-rx::delay = 5\n",
     .board = board_setup().fault("no-map 0x10040004"),
     .err = "mac-tx::delay: map /dev/zeb_mem for address 0x10040004 failed: Operation not "
            "permitted\nmac-rx::delay: map /dev/zeb_mem for address 0x10040008 failed: Operation "
            "not permitted\n",
     .status = 1},
    {.name = "VoltageThatTheDriverRefuses",
     .args = {"set", "cpu_regulator::microvolts=900000"},
     .board = board_setup().fault("fail write 1 EINVAL"),
     .err = "cpu_regulator::microvolts: /sys/class/regulator/regulator.1/microvolts: Invalid "
            "argument\n"
            "all was put back:\n"
            "cpu_regulator::microvolts = 1000000 # as before\n",
     .status = 1},
    {.name = "RegulatorWithoutLimitsIsNotSet",
     .args = {"set", "cpu_regulator::microvolts=900000"},
     .board = board_setup().fault("no-open /sys/class/regulator/regulator.1/max_microvolts"),
     .err = "/sys/class/regulator/regulator.1/max_microvolts: No such file or directory\n"
            "nothing was written\n",
     .status = 2},
    {.name = "LockThatCannotBeTaken",
     .args = {"get", "mmc"},
     .board = board_setup().fault("no-lock /tmp/brisel.lock"),
     .err = "cannot lock /tmp/brisel.lock: No locks available\n",
     .status = 2},
    {.name = "LockFileThatCannotBeOpened",
     .args = {"get", "mmc"},
     .board = board_setup().fault("no-open /tmp/brisel.lock EACCES"),
     .err = "cannot open /tmp/brisel.lock: Permission denied\n",
     .status = 2},
};
