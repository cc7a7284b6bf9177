#include "support/fake_streams.hpp"

namespace {

struct one_write {
    standard_stream stream;
    std::string text;
    bool seen = false; ///< by the test
};

std::vector<one_write> all_writes;

} // namespace

namespace fake_streams {

bool work = true;

std::string text(standard_stream stream) {
    std::string all;
    for (one_write& each : all_writes) {
        if (each.stream == stream) {
            all += each.text;
            each.seen = true;
        }
    }
    return all;
}

std::string unseen() {
    std::string all;
    for (const one_write& each : all_writes) {
        all += each.seen ? "" : each.text;
    }
    return all;
}

std::vector<std::string> writes() {
    std::vector<std::string> texts;
    texts.reserve(all_writes.size());
    for (one_write& each : all_writes) {
        texts.push_back(each.text);
        each.seen = true;
    }
    return texts;
}

void reset() {
    all_writes.clear();
    work = true;
}

} // namespace fake_streams

bool write_standard_stream(standard_stream stream, std::string_view text) {
    if (fake_streams::work) {
        all_writes.push_back({stream, std::string(text)});
    }
    return fake_streams::work;
}
