#pragma once
// A file the user names, read whole and told apart by its content: the lines of a written
// fixture file, or a QLC+ fixture definition whose mode is still to choose.

#include <QString>
#include <optional>

#include "input/fixture_reader.h"
#include "input/qxf_reader.h"

namespace input {

struct FixtureSource {
    std::optional<common::Fixture> written;  // a written fixture file, ready to fill the pages
    std::optional<QxfFixture> qxf;           // a QLC+ fixture: one of its modes fills the pages
    QString error;                           // why the file was refused, when it was
};

FixtureSource ReadFixtureSource(const QString& path);

}  // namespace input
