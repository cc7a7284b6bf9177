#pragma once

#include "output/output_stream.hpp"
#include "support/pipe_of_writes.hpp"

/** Catches both standard streams in one sequence, with each write apart. */
class write_log : public pipe_of_writes {
public:
    write_log()
        : m_out(standard_output.redirect(descriptor())),
          m_err(standard_error.redirect(descriptor())) {}
    ~write_log() {
        standard_error.redirect(m_err);
        standard_output.redirect(m_out);
    }

private:
    int m_out;
    int m_err;
};
