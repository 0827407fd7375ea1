#include "wizard/fixture_pages.h"

#include "gui/system.h"
#include "output/form_fixture.h"
#include "wizard/main_form.h"

std::optional<TypeDegrees> DegreesOf(common::FixtureType type) {
    using common::FixtureType;
    switch (type) {
        case FixtureType::kOther:
            return TypeDegrees{QStringLiteral("0"), QStringLiteral("0"), false};
        case FixtureType::kMovingHead:
            return TypeDegrees{QStringLiteral("540"), QStringLiteral("270"), true};
        case FixtureType::kMirror:
            return TypeDegrees{QStringLiteral("180"), QStringLiteral("90"), true};
        case FixtureType::kNone:
            break;
    }
    return std::nullopt;
}

QString ComposedComment(const QString& manufacturer, const QString& model, const QDateTime& now) {
    return now.toString(QStringLiteral("MM-dd-yyyy")) + u' ' +
           now.toString(QStringLiteral("HH:mm:ss")) + u' ' + manufacturer + u' ' + model +
           QStringLiteral("- Created with ") + QLatin1String(texts::kCaption);
}

void ApplyTypeDegrees(common::Fixture& fixture) {
    if (const std::optional<TypeDegrees> degrees = DegreesOf(fixture.type)) {
        fixture.pan = degrees->pan;
        fixture.tilt = degrees->tilt;
    }
}

common::Fixture AtFinishPage(common::Fixture fixture, const QDateTime& now) {
    ApplyTypeDegrees(fixture);
    fixture.comment = ComposedComment(fixture.manufacturer, fixture.model, now);
    fixture.channelCount = QString::number(common::ChannelCount(fixture.channels));
    return fixture;
}

void ApplyDegreesDefaults(MainForm& f) {
    const std::optional<TypeDegrees> degrees = DegreesOf(FormType(f));
    if (!degrees) return;
    f.degreespan.setEnabled(degrees->typed);
    f.degreestilt.setEnabled(degrees->typed);
    f.degreespan.setText(degrees->pan);
    f.degreestilt.setText(degrees->tilt);
}

void ComposeComment(MainForm& f) {
    f.morecomment.setText(ComposedComment(f.manifacturer.Text(), f.model.Text(), gui::Now()));
}
