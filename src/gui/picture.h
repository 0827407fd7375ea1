#pragma once
// A drawing surface with a user scale. It keeps no image of its own: what was drawn shows
// while the surface is on screen and is gone once it has been hidden; the back colour
// stands in its place until the next drawing.

#include <QString>
#include <functional>

#include "gui/control.h"

namespace gui {

class PictureView;

class Picture : public Control {
  public:
    // `look.back` is the back colour, `look.fore` the drawing colour.
    void create(Control& parent, const QString& name, const Look& look, double scaleWidth,
                double scaleHeight);
    void setForeColor(int colour);  // colour number: red + 256 * green + 65536 * blue
    double ScaleHeight() const;
    // A filled box between two corners in the user scale, outline and inside in ForeColor.
    void Line(double x1, double y1, double x2, double y2);
    // What the drawing shows, in words, for a screen reader: `describe` is asked once the
    // event that drew it is handled, so that many drawings in one event cost one text.
    void setDescription(std::function<QString()> describe);

    PictureView* view() const { return view_; }

  private:
    PictureView* view_ = nullptr;
    std::function<QString()> describe_;
};

}  // namespace gui
