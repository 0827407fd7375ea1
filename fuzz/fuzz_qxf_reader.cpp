// Any bytes into the reader of QLC+ fixture definitions, and every mode it finds through the
// mapping: read or refused, never a crash; a mapped mode puts each channel at its Number + 1.
#include <QByteArray>
#include <QSet>
#include <cstdint>
#include <cstdlib>

#include "input/channel_lines.h"
#include "input/qxf_mapping.h"
#include "input/qxf_reader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const input::QxfOutcome read = input::ReadQxfBytes(bytes);
    if (!read.fixture) return read.error.isEmpty() ? (std::abort(), 0) : 0;
    for (int m = 0; m < read.fixture->modes.size(); ++m) {
        const input::ReadOutcome mapped = input::MapQxfMode(*read.fixture, m);
        if (!mapped.fixture) continue;
        QSet<QString> offsets;
        const common::TextTable& rows = mapped.fixture->channels;
        for (int row = 0; row < rows.rows(); ++row) {
            offsets << rows.cell(row, common::kDmx1);
            if (rows.cell(row, common::kDmx2) != u"0") offsets << rows.cell(row, common::kDmx2);
        }
        QSet<QString> numbered;  // each channel at its Number + 1
        for (const int number : read.fixture->modes[m].numbers)
            numbered << QString::number(number + 1);
        if (offsets != numbered) std::abort();
    }
    return 0;
}
