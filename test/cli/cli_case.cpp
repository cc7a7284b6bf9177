#include "cli/cli_case.hpp"

#include <iterator>

#include "cli/texts.hpp"
#include "model/ddr_phy.hpp"
#include "model/text.hpp"

namespace {

/** Adds an access to a word, and before it the write of its selector if it has one. */
void add_access(std::vector<std::string>& accesses, const std::string& verb,
                const word_place& place, std::uint32_t word) {
    if (place.selector) {
        accesses.push_back("write " +
                           hex_text(find_banked_register(place.address).value().select_address) +
                           " " + hex_text(*place.selector));
    }
    accesses.push_back(verb + " " + hex_text(place.address) + " " + hex_text(word));
}

/** A row whose board holds that word, and that begins by reading it. */
cli_case row_with(const std::string& name, const std::vector<std::string>& args,
                  const word_place& place, std::uint32_t word) {
    cli_case row{.name = name, .args = args};
    if (place.selector) {
        row.board.word(place.address, *place.selector, word);
    } else {
        row.board.word(place.address, word);
    }
    add_access(row.accesses, "read", place, word);
    return row;
}

} // namespace

cli_case shows(const std::string& name, const std::vector<std::string>& args,
               const board_setup& setup, const std::string& shown) {
    return {.name = name,
            .args = args,
            .board = setup,
            .out = shown + "\n",
            .err = got(args.back(), shown)};
}

cli_case reads(const std::string& name, const std::vector<std::string>& args,
               const word_place& place, std::uint32_t word, const std::string& shown) {
    const cli_case reading = row_with(name, args, place, word);
    cli_case row = shows(name, args, reading.board, shown);
    row.accesses = reading.accesses;
    return row;
}

cli_case writes(const std::string& name, const std::vector<std::string>& args,
                const word_place& place, std::uint32_t before, std::uint32_t after,
                const std::string& messages) {
    cli_case row = row_with(name, args, place, before);
    add_access(row.accesses, "write", place, after);
    add_access(row.accesses, "read", place, after);
    row.err = messages + set_done(*std::next(args.rbegin()), args.back());
    return row;
}

cli_case refuses(const std::string& name, const std::vector<std::string>& args,
                 const std::string& messages) {
    cli_case row{.name = name, .args = args};
    row.err = messages + set_failed(*std::next(args.rbegin()), args.back());
    row.status = 245;
    return row;
}

cli_case reads_and_refuses(const std::string& name, const std::vector<std::string>& args,
                           const word_place& place, std::uint32_t word,
                           const std::string& messages) {
    cli_case row = refuses(name, args, messages);
    const cli_case reading = row_with(name, args, place, word);
    row.board = reading.board;
    row.accesses = reading.accesses;
    return row;
}
