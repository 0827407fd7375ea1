// Any bytes into the reader of written fixture files: read whole or refused, never a crash;
// what it reads fills every cell of a row.
#include <QByteArray>
#include <cstdint>
#include <cstdlib>

#include "input/channel_lines.h"
#include "input/fixture_reader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const input::ReadOutcome read = input::ReadFixtureBytes(bytes);
    if (read.fixture) {
        const common::TextTable& rows = read.fixture->channels;
        if (rows.cols() != common::kChannelColumns) std::abort();
        if (rows.rows() > common::kMaxChannelRows) std::abort();
    } else if (read.error.isEmpty()) {
        std::abort();  // a refusal always says why
    }
    return 0;
}
