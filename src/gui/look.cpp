#include "gui/look.h"

#include <QGuiApplication>
#include <QScreen>

namespace gui {
namespace {

double LogicalDpi() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    const double dpi = screen ? screen->logicalDotsPerInchX() : 96.0;
    return dpi > 0 ? dpi : 96.0;
}

}  // namespace

int TwipsToPixels(int twips) {
    return qRound(twips * LogicalDpi() / 1440.0);
}
int PixelsToTwips(int pixels) {
    return qRound(pixels * 1440.0 / LogicalDpi());
}

}  // namespace gui
