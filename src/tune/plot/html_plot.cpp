#include "tune/plot/html_plot.hpp"

#include "tune/plot/plot_words.hpp"
#include "tune/plot/svg_plot.hpp"
#include "tune/text/xml.hpp"

namespace {

constexpr std::string_view page_style = R"(
:root { color-scheme: light dark }
body { font: 15px sans-serif; margin: 1em; color: #1a1a1a; background: #fff }
div { overflow-x: auto }
table { border-collapse: collapse }
th, td { border: 1px solid #888; padding: .2em .6em; text-align: left }
@media print { svg { max-width: 100%; height: auto } }
@media screen and (prefers-color-scheme: dark) { body { color: #e8e8e8; background: #16191d } }
)";

/** A row of the table. @param name of the cells' elements */
std::string table_row(const std::vector<std::string>& cells, const char* name) {
    std::string row = "<tr>";
    for (const std::string& cell : cells) {
        row += element(name, cell);
    }
    return row + "</tr>\n";
}

} // namespace

std::string plot_html(const sweep_results& results) {
    std::vector<std::string> cells(1, "property");
    cells.insert(cells.end(), fact_headings.begin(), fact_headings.end());
    cells.emplace_back("in words");
    std::string table = table_row(cells, "th");
    for (const sweep_grid& grid : results.grids) {
        const auto best = best_in(grid);
        cells.assign(1, grid.columns.target().name());
        const std::vector<std::string> facts = facts_of(grid, best);
        cells.insert(cells.end(), facts.begin(), facts.end());
        cells.push_back(words_for(grid, best));
        table += table_row(cells, "td");
    }
    const std::string title = title_of(results);
    return "<!DOCTYPE html>\n<html xmlns=\"http://www.w3.org/1999/xhtml\" lang=\"en\">\n<head>\n"
           "<meta charset=\"utf-8\"/>\n" +
           element("title", title) + "\n<style>" + std::string(page_style) +
           "</style>\n</head>\n<body>\n<div>\n" + plot_svg(results) + "</div>\n<table>\n" + table +
           "</table>\n</body>\n</html>\n";
}
