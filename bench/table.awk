# Makes an aligned Markdown table of lines of cells between tabs; the first line is the heading.
# Columns hold texts at the left; from the column `numbers` on, numbers at the right.

BEGIN {
    FS = "\t"
}

{
    for (i = 1; i <= NF; ++i) {
        cell[NR, i] = grouped($i)
        if (length(cell[NR, i]) > width[i]) {
            width[i] = length(cell[NR, i])
        }
    }
    columns = NF > columns ? NF : columns
}

END {
    for (row = 1; row <= NR; ++row) {
        line = "|"
        for (i = 1; i <= columns; ++i) {
            line = line sprintf(i < numbers ? " %-*s |" : " %*s |", width[i], cell[row, i])
        }
        print line
        if (row == 1) {
            print rule()
        }
    }
}

function rule(   i, line, dashes) {
    line = "|"
    for (i = 1; i <= columns; ++i) {
        dashes = sprintf("%*s", width[i], "")
        gsub(" ", "-", dashes)
        line = line " " (i < numbers ? dashes : substr(dashes, 2) ":") " |"
    }
    return line
}

# 1234567 as 1,234,567; any other text as it is.
function grouped(text,   digits) {
    if (text !~ /^[0-9]+$/) {
        return text
    }
    digits = text
    text = ""
    while (length(digits) > 3) {
        text = "," substr(digits, length(digits) - 2) text
        digits = substr(digits, 1, length(digits) - 3)
    }
    return digits text
}
