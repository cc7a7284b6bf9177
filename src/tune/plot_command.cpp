#include <unistd.h>

#include "tune/commands.hpp"
#include "tune/plot/canvas.hpp"
#include "tune/plot/html_plot.hpp"
#include "tune/plot/svg_plot.hpp"
#include "tune/plot/text_plot.hpp"
#include "tune/text/console.hpp"
#include "tune/text/mistake.hpp"
#include "tune/text/text.hpp"
#include "tune/text/whole_file.hpp"

tune_status plot_sweep(const knobs& all, const command_line& words) {
    const std::string file = words.output.value_or("");
    const bool is_page = file.ends_with(".html");
    if (words.output && !is_page && !file.ends_with(".svg")) {
        throw mistake("-o takes FILE.svg or FILE.html, not " + in_quotes(file));
    }
    const sweep_results results = read_results(all, words.operands);
    if (is_page) {
        write_whole(file, plot_html(results));
    } else if (words.output) {
        write_whole(file, plot_svg(results));
    } else {
        show(plot_text(results, canvas_of(STDOUT_FILENO)));
    }
    return tune_status::done;
}
