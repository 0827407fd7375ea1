#pragma once
// How a control looks and where it stands, in the units of the form: places in twips
// (1440 to the inch), colours as 0xRRGGBB, font sizes in points. One `Look` per control
// lets the form's catalogue read like a table.

#include <QString>

namespace gui {

constexpr int kDefaultColour = -1;

enum class Align { Left, Centre, Right };

struct Look {
    QString caption{};  // caption of a button, label, frame; text of a text box
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    double points = 8.25;
    bool bold = false;
    bool italic = false;
    int fore = kDefaultColour;
    int back = kDefaultColour;
    Align align = Align::Left;
    bool enabled = true;
    bool visible = true;
    bool checked = false;     // check box ticked at start
    int maxLength = 0;        // text box: 0 is no limit
    bool multiLine = false;   // text box over several lines
    bool scrollBars = false;  // multi-line text box: both scroll bars
    QString tag{};            // free text tag
    QString toolTip{};
    QString picture{};         // resource name of a picture, e.g. ":/pictures/add.svg"
    QString accessibleName{};  // what a screen reader calls a control that shows no text
                               // and has no label beside it
    int coveredRight = 0;      // label: twips at its right edge that a control laid over it hides
};

// Twips to device-independent pixels, by the screen's logical DPI.
int TwipsToPixels(int twips);
int PixelsToTwips(int pixels);

}  // namespace gui
