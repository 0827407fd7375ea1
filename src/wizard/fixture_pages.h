#pragma once
// What a page change does to the fixture: the degrees follow the fixture type on every page,
// and the finish page composes the comment on arrival. Each is a function over the fixture
// value, which the form applies to its controls and the library commands to a value.

#include <QDateTime>
#include <QString>
#include <optional>

#include "common/fixture.h"

struct MainForm;

struct TypeDegrees {
    QString pan;
    QString tilt;
    bool typed;  // whether the user may change them
};
// The degrees a fixture type sets; nothing when no type is chosen.
std::optional<TypeDegrees> DegreesOf(common::FixtureType type);

// The comment the finish page composes at `now` for a fixture of these names.
QString ComposedComment(const QString& manufacturer, const QString& model, const QDateTime& now);

// The degrees of the fixture's type, when it has one.
void ApplyTypeDegrees(common::Fixture& fixture);

// The fixture as the finish page holds it when reached from the first page at `now`: the
// degrees of its type, the composed comment and the channel count of its rows.
common::Fixture AtFinishPage(common::Fixture fixture, const QDateTime& now);

void ApplyDegreesDefaults(MainForm& f);
void ComposeComment(MainForm& f);
