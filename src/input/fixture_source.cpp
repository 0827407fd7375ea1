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
    return {std::move(read.fixture), std::nullopt, read.error};
}

}  // namespace input
