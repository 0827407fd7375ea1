#include "wizard/fixture_pages.h"

#include "gui/system.h"
#include "wizard/main_form.h"

namespace {

void SetDegrees(MainForm& f, const char* pan, const char* tilt, bool enabled) {
    f.degreespan.setEnabled(enabled);
    f.degreestilt.setEnabled(enabled);
    f.degreespan.setText(QString::fromLatin1(pan));
    f.degreestilt.setText(QString::fromLatin1(tilt));
}

}  // namespace

void ApplyDegreesDefaults(MainForm& f) {
    if (f.otherkind.Value())
        SetDegrees(f, "0", "0", false);
    else if (f.movinghead.Value())
        SetDegrees(f, "540", "270", true);
    else if (f.mirror.Value())
        SetDegrees(f, "180", "90", true);
}

void ComposeComment(MainForm& f) {
    const QDateTime now = gui::Now();
    f.morecomment.setText(now.toString(QStringLiteral("MM-dd-yyyy")) + u' ' +
                          now.toString(QStringLiteral("HH:mm:ss")) + u' ' + f.manifacturer.Text() +
                          u' ' + f.model.Text() + QStringLiteral("- Created with ") +
                          f.main.Caption());
}
