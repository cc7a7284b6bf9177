#include "cli/cli_case.hpp"
#include "cli/texts.hpp"

namespace {

const std::string sda = "i2c0-delay::sda-delay";

/** What the process says last when it cannot reach a word. */
std::string unreachable(const std::string& action, const std::string& address,
                        const std::string& reason) {
    return action + " /dev/zeb_mem for address " + address + " failed: " + reason + "\n";
}

} // namespace

const std::vector<cli_case> fault_cases = {
    {.name = "MissingNodeEndsARead",
     .args = {sda},
     .board = board_setup().fault("no-open /dev/zeb_mem"),
     .err = unreachable("open", "0x10090110", "No such file or directory"),
     .status = aborted},
    {.name = "MissingNodeEndsAWrite",
     .args = {"orlin-ddra0::scl", "5"},
     .board = board_setup().fault("no-open /dev/zeb_mem"),
     .err = unreachable("open", "0x1842812c", "No such file or directory"),
     .status = aborted},
    {.name = "NodeWithoutPermissionEndsARead",
     .args = {"-r", sda},
     .board = board_setup().fault("no-open /dev/zeb_mem EACCES"),
     .err = unreachable("open", "0x10090110", "Permission denied"),
     .status = aborted},
    {.name = "RefusedMappingEndsARead",
     .args = {sda},
     .board = board_setup().fault("no-map 0x10090000"),
     .err = unreachable("map", "0x10090110", "Operation not permitted"),
     .status = aborted},
    {.name = "RefusedMappingEndsAWriteBeforeItsDataWord",
     .args = {"orlin-ddra0::scl", "5"},
     .board = board_setup().fault("no-map 0x18428000 EINVAL"),
     .err = unreachable("map", "0x1842812c", "Invalid argument"),
     .status = aborted},
    {.name = "MissingNodeDoesNotMatterWhileListing",
     .args = {"-i"},
     .board = board_setup().fault("no-open /dev/zeb_mem"),
     .out = "Not supported yet.\n",
     .status = 253},
    {.name = "MissingNodeDoesNotMatterToARefusedValue",
     .args = {sda, "16"},
     .board = board_setup().fault("no-open /dev/zeb_mem"),
     .err = set_failed(sda, "16"),
     .status = 245},

    {.name = "BitsThatDoNotStickAreStillAWriteThatSucceeded",
     .args = {sda, "15"},
     .board = board_setup().word(0x10090110, 0).fault("stuck 0x10090110 0x00000006"),
     .err = set_done(sda, "15"),
     .accesses = {"read 0x10090110 0x00000000", "write 0x10090110 0x0000000f",
                  "read 0x10090110 0x00000009"}},
    {.name = "AnotherWordReadBackIsWhatIsShown",
     .args = {sda},
     .board = board_setup().fault("reads-as 0x10090110 0xffffffff"),
     .out = "15\n",
     .err = got(sda, "15"),
     .accesses = {"read 0x10090110 0xffffffff"}},
    {.name = "LinkStateWordTakesNoWrite",
     .args = {"pcie-link::state-ro", "-1"},
     .board = board_setup().word(0x111a2204, 0x3),
     .err = set_failed("pcie-link::state-ro", "-1"),
     .status = 245,
     .accesses = {"read 0x111a2204 0x00000003"}},
};
