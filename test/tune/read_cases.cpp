#include "cli/texts.hpp"
#include "tune/tune_case.hpp"

namespace {

const std::vector<std::string> all_lanes_read = {
    "write 0x1a41912c 0x00000007", "read 0x1a419194 0x00000041",  "write 0x1a41912c 0x00000107",
    "read 0x1a419194 0x00000000",  "write 0x1a41912c 0x00000207", "read 0x1a419194 0x00000040",
    "write 0x1a41912c 0x00000307", "read 0x1a419194 0x0000007f",  "write 0x1a41912c 0x00000407",
    "read 0x1a419194 0x000000ff",  "write 0x1a41912c 0x00000507", "read 0x1a419194 0x00000085",
    "write 0x1a41912c 0x00000607", "read 0x1a419194 0x00000001",  "write 0x1a41912c 0x00000707",
    "read 0x1a419194 0x0000003f",
};

board_setup with_lanes() {
    board_setup setup;
    const std::uint32_t words[] = {0x41, 0, 0x40, 0x7f, 0xff, 0x85, 1, 0x3f};
    for (std::uint32_t lane = 0; lane < 8; ++lane) {
        setup.word(0x1a419194, lane * 0x100 + 7, words[lane]);
    }
    return setup;
}

const std::string lanes_line =
    "pelune-ddr-read1::dq = {65,0,64,127,127,5,1,63} # d+1 d-0 d+0 d+63 d+63 d-5 d-1 d-63\n";

} // namespace

const std::vector<tune_case> read_cases = {
    {.name = "FieldIsDecimal",
     .args = {"get", sda},
     .board = board_setup().word(0x10090110, 0x7c),
     .out = sda + " = 12\n",
     .accesses = {"read 0x10090110 0x0000007c"}},
    {.name = "MappedFieldIsItsKey",
     .args = {"get", odt},
     .board = board_setup().word(0x18428120, 1),
     .out = odt + " = 120\n",
     .accesses = {"read 0x18428120 0x00000001"}},
    {.name = "CodeThatNoKeyStandsForIsRaw",
     .args = {"get", odt},
     .board = board_setup().word(0x18428120, 3),
     .out = odt + " = raw:3\n",
     .accesses = {"read 0x18428120 0x00000003"}},
    {.name = "WholeWordIsHexadecimal",
     .args = {"get", "orlin-ddra1::scl"},
     .board = board_setup().word(0x1842813c, 8, 0xabc),
     .out = "orlin-ddra1::scl = 0x00000abc\n",
     .accesses = {"write 0x1842812c 0x00000008", "read 0x1842813c 0x00000abc"}},
    {.name = "LaneIsShownWithItsDelay",
     .args = {"get", "pelune-ddr-read1::dq5"},
     .board = with_lanes(),
     .out = "pelune-ddr-read1::dq5 = 5 # d-5\n",
     .accesses = {"write 0x1a41912c 0x00000507", "read 0x1a419194 0x00000085"}},
    {.name = "SetIsOneLineWithItsDelays",
     .args = {"get", lanes},
     .board = with_lanes(),
     .out = lanes_line,
     .accesses = all_lanes_read},
    {.name = "SetTakesThePlaceOfItsLanes",
     .args = {"get", "pelune-ddr-read1::*", "pelune-ddr-read1::dq0"},
     .board = with_lanes(),
     .out = lanes_line,
     .accesses = all_lanes_read},
    {.name = "GroupIsInTheOrderOfTheListAndNothingComesTwice",
     .args = {"get", "mac-tx::delay", "mac", "mac*"},
     .out = "mac-rx::delay = 5\nmac-tx::delay = 2\n",
     .accesses = {"read 0x10040008 0x00500001", "read 0x10040004 0x00200001"}},
    {.name = "FieldsOfOneRegisterTakeOneRead",
     .args = {"get", "i2c0*"},
     .board = board_setup().word(0x10090110, 0x7c),
     .out = "i2c0-delay::scl-delay = 7\ni2c0-delay::sda-delay = 12\n",
     .accesses = {"read 0x10090110 0x0000007c"}},
    {.name = "FilesTakeNoAccess",
     .args = {"get", "mmc", "cpu_regulator::microvolts"},
     .out = "mmc::rdqs = 40\ncpu_regulator::microvolts = 1000000\n"},

    {.name = "UnchangedTuningHasNoDifference",
     .args = {"diff", tuning_file},
     .tuning = "# a comment\n\n mac-tx::delay=2 # and another\n",
     .accesses = {"read 0x10040004 0x00200001"}},
    {.name = "NumbersAreComparedByValue",
     .args = {"diff", tuning_file},
     .tuning = "mac-tx::delay = 0x2\npelune-ddr-read1::dq5 = d-5\n",
     .board = with_lanes(),
     .accesses = {"read 0x10040004 0x00200001", "write 0x1a41912c 0x00000507",
                  "read 0x1a419194 0x00000085"}},
    {.name = "DifferencesAreShownWithBothValues",
     .args = {"diff", tuning_file},
     .tuning = "mac-tx::delay = 4\norlin-ddra::odt = raw:3\n",
     .board = board_setup().word(0x18428120, 1),
     .out = "mac-tx::delay    4      2\norlin-ddra::odt  raw:3  120\n",
     .status = 1,
     .accesses = {"read 0x10040004 0x00200001", "read 0x18428120 0x00000001"}},
    {.name = "OfASetOnlyTheLanesThatDifferAreShown",
     .args = {"diff", tuning_file},
     .tuning = "pelune-ddr-read1::dq = {65,0,64,127,127,5,d+1,63}\n",
     .board = with_lanes(),
     .out = "pelune-ddr-read1::dq6  65 (d+1)  1 (d-1)\n",
     .status = 1,
     .accesses = all_lanes_read},
    {.name = "ReadOnlyPropertiesThatShareBitsAreCompared",
     .args = {"diff", tuning_file},
     .tuning = "pcie-link::state-ro = 3\npcie-ltssm::state-ro = 4\n",
     .out = "pcie-ltssm::state-ro  4  3\n",
     .status = 1,
     .accesses = {"read 0x111a2204 0x00000003", "read 0x111a2204 0x00000003"}},
    {.name = "TwoFilesAreComparedWithoutTheBoard",
     .args = {"diff", tuning_file, tuning_file},
     .tuning = "mac-tx::delay = 4\n"},
    {.name = "NameInOneOfTwoFilesDiffers",
     .args = {"diff", tuning_file, "/dev/null"},
     .tuning = "mac-tx::delay = 4\n",
     .out = "mac-tx::delay  4  -\n",
     .status = 1},
    {.name = "NameInTheOtherFileDiffers",
     .args = {"diff", "-", tuning_file},
     .tuning = "mac-tx::delay = 4\n",
     .out = "mac-tx::delay  -  4\n",
     .status = 1},
    {.name = "WindowsLineEndsAndNoLastNewlineAreTaken",
     .args = {"diff", tuning_file},
     .tuning = "mac-tx::delay = 2\r\n\r\nmac-rx::delay = 5",
     .accesses = {"read 0x10040004 0x00200001", "read 0x10040008 0x00500001"}},

    {.name = "ListTouchesNothing",
     .args = {"list", "mac-tx::delay"},
     .board = board_setup().fault("no-open /dev/zeb_mem").fault("no-lock /tmp/brisel.lock"),
     .out = "name           kind   values   unit    address     bits    help\n"
            "mac-tx::delay  field  0 to 15  cycles  0x10040004  23..20  [0-15]cycles\n"},
    {.name = "ListAsJson",
     .args = {"list", "--json", "orlin-ddra::odt", "cpu_regulator::microvolts"},
     .out =
         "[\n"
         R"(  {"name": "orlin-ddra::odt", "kind": "mapped field", "values": "0, 40, 60, 120", )"
         R"("unit": "ohm", "address": "0x18428120", "bits": "3..0", )"
         "\"help\": \"on-die termination\"},"
         "\n"
         R"(  {"name": "cpu_regulator::microvolts", "kind": "regulator", )"
         R"("values": "microvolts within the regulator's limits", "unit": "uV", )"
         R"("address": "/sys/class/regulator/regulator.1", "bits": "-", "help": "output voltage"})"
         "\n]\n"},
};
