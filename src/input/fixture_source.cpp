#include "input/fixture_source.h"

#include "input/file_bytes.h"

namespace input {

FixtureSource ReadFixtureSource(const QString& path) {
    const FileBytes file = ReadRegularFile(path);
    if (!file.bytes) return {std::nullopt, std::nullopt, file.error};
    if (LooksLikeXml(*file.bytes)) {
        QxfOutcome read = ReadQxfBytes(*file.bytes);
        return {std::nullopt, std::move(read.fixture), read.error};
    }
    ReadOutcome read = ReadFixtureBytes(*file.bytes);
    // Whoever names a file .qxf means a QLC+ fixture: when it is neither kind, what it lacks
    // as XML says more than the first line that is no line of a fixture file.
    if (!read.fixture && path.endsWith(QLatin1String(".qxf"), Qt::CaseInsensitive)) {
        QxfOutcome xml = ReadQxfBytes(*file.bytes);
        if (xml.fixture) return {std::nullopt, std::move(xml.fixture), {}};
        read.error = xml.error;
    }
    return {std::move(read.fixture), std::nullopt, read.error};
}

}  // namespace input
