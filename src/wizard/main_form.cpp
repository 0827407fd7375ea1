// The form's catalogue: every control with its kind, caption, place in twips and style.
#include "wizard/main_form.h"

#include <QString>

#include "common/channel_presets.h"
#include "common/fixture.h"

using gui::Align;
using gui::Look;

namespace {

const QString kErrorText =
    QStringLiteral("ERROR MESSAGE HERE !!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!");
constexpr int kRed = 0xFF0000;

const QString kPatchText = QString::fromLatin1(common::kDefaultPatchText);

const QString kLabel12 = QStringLiteral(
    "\"dmx\" fields rapresent the offset from 1 to the number of dmx channels occupied by "
    "the unit. Note that \"dmx2\" is the low byte of a 16bit channel, otherwise it MUST be set "
    "to ZERO!");

QString Pic(const char* name) {
    return QStringLiteral(":/pictures/") + QLatin1String(name);
}

QString Indexed(const char* name, int index) {
    return QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(index);
}

// Preset buttons: index, caption, picture, place on the panel.
struct PresetButton {
    int index;
    const char* caption;
    const char* picture;
    int left;
    int top;
};

constexpr PresetButton kPresetButtons[] = {
    {0, "pan", "preset_pantilt.svg", 120, 240},      {1, "pan16", "preset_pantilt.svg", 720, 240},
    {2, "tilt", "preset_pantilt.svg", 1320, 240},    {3, "tilt16", "preset_pantilt.svg", 1920, 240},
    {12, "dimmer", "preset_sun.svg", 2520, 240},     {13, "shutter", "preset_sun.svg", 3120, 240},
    {4, "colour", "preset_colour.svg", 3720, 240},   {5, "color2", "preset_colour.svg", 4320, 240},
    {6, "CMY", "preset_colour.svg", 4920, 240},      {7, "RGB", "preset_colour.svg", 5520, 240},
    {9, "iris", "preset_beam.svg", 120, 840},        {10, "focus", "preset_beam.svg", 720, 840},
    {11, "zoom", "preset_beam.svg", 1320, 840},      {14, "gobo1", "preset_gobo.svg", 1920, 840},
    {15, "gobo2", "preset_gobo.svg", 2520, 840},     {16, "g1.rot", "preset_gobo.svg", 3120, 840},
    {17, "g2.rot", "preset_gobo.svg", 3720, 840},    {18, "speed", "preset_cross.svg", 4320, 840},
    {21, "prism", "preset_prism.svg", 120, 1440},    {22, "p. rot", "preset_prism.svg", 720, 1440},
    {8, "CTO", "preset_cross.svg", 1320, 1440},      {23, "frost", "preset_cross.svg", 1920, 1440},
    {24, "macro", "preset_cross.svg", 2520, 1440},   {19, "effect", "preset_cross.svg", 4920, 1440},
    {20, "control", "preset_cross.svg", 5520, 1440},
};

constexpr const char* kPageCaptions[7] = {
    "Step 1 - general proprieties", "Step 2 - DMX patching limits and information, Mirror",
    "Step 3 - channel definitions", "Step 4 - add more text...etc...",
    "Step 5 - palettes ",           "Step 6 - macros ",
    "Step 7 - range tables ",
};

struct Place {
    int left, top, width, height;
};
constexpr Place kErrorPlaces[7] = {
    {240, 6000, 9135, 255}, {240, 4800, 9135, 255}, {7200, 240, 2175, 1095}, {600, 1920, 3495, 615},
    {120, 720, 3495, 615},  {240, 600, 3495, 615},  {120, 5880, 5415, 375},
};

}  // namespace

// One line per control reads best as a table, so the catalogue keeps its long lines.
// clang-format off
MainForm::MainForm() {
    main.create("main", {.caption = texts::kCaption, .width = 9750, .height = 7260},
                QStringLiteral(":/pictures/rigwright.svg"));

    // Pages first, so that the bottom controls are created after them.
    for (int i = 0; i < 7; ++i) {
        stepf[i].create(main, Indexed("stepf", i),
                        {.caption = kPageCaptions[i], .left = 120, .top = 120, .width = 9495,
                         .height = 6375, .visible = false});
    }

    // ---- Page index 0 ----
    auto& p0 = stepf[0];
    Label1.create(p0, "Label1", {.caption = "Manufacturer", .left = 360, .top = 720, .width = 1455, .height = 255});
    manifacturer.create(p0, "manifacturer", {.left = 2040, .top = 600, .width = 5055, .height = 375, .maxLength = 30});
    Label2.create(p0, "Label2", {.caption = "Model", .left = 360, .top = 1200, .width = 1455, .height = 255});
    model.create(p0, "model", {.left = 2040, .top = 1080, .width = 5055, .height = 375, .maxLength = 30});
    Label3.create(p0, "Label3", {.caption = "Name on desk", .left = 360, .top = 1680, .width = 1455, .height = 255});
    nameondesk.create(p0, "nameondesk", {.left = 2040, .top = 1560, .width = 2775, .height = 375, .maxLength = 11});
    Label4.create(p0, "Label4", {.caption = "(11 char max, no spaces!)", .left = 5040, .top = 1680, .width = 2055, .height = 255});
    Label5.create(p0, "Label5", {.caption = "Fixture type:", .left = 360, .top = 2880, .width = 1095, .height = 255});
    movinghead.create(p0, "movinghead", {.caption = "Moving Head", .left = 360, .top = 3120, .width = 1695, .height = 375});
    mirror.create(p0, "mirror", {.caption = "Mirror", .left = 1920, .top = 3120, .width = 1095, .height = 375});
    otherkind.create(p0, "otherkind", {.caption = "Other kind of fixture", .left = 3120, .top = 3120, .width = 3495, .height = 375});
    openfixture.create(p0, "openfixture", {.caption = "Open\u2026", .left = 360, .top = 4320, .width = 1455, .height = 375, .toolTip = "Start from a fixture file (.R20) or a QLC+ fixture (.qxf)"});

    // ---- Page index 1 ----
    auto& p1 = stepf[1];
    Check3.create(p1, "Check3", {.caption = "Default limits (1 to 512-channels), multiple of 1", .left = 240, .top = 360, .width = 8655, .height = 255, .enabled = false, .checked = true});
    Check2.create(p1, "Check2", {.caption = "Use default patching information", .left = 240, .top = 720, .width = 8415, .height = 255, .enabled = false, .checked = true});
    Frame6.create(p1, "Frame6", {.caption = "Mirror", .left = 240, .top = 5160, .width = 9015, .height = 975, .points = 9.75, .bold = true});
    Label10.create(Frame6, "Label10", {.caption = "PAN DEGREES", .left = 720, .top = 360, .width = 1215, .height = 375});
    degreespan.create(Frame6, "degreespan", {.caption = "540", .left = 2160, .top = 360, .width = 855, .height = 375, .points = 9.75, .bold = true, .align = Align::Centre});
    Label11.create(Frame6, "Label11", {.caption = "TILT DEGREES", .left = 5160, .top = 360, .width = 1455, .height = 375});
    degreestilt.create(Frame6, "degreestilt", {.caption = "270", .left = 6600, .top = 360, .width = 855, .height = 375, .points = 9.75, .bold = true, .align = Align::Centre});

    // ---- Page index 2 ----
    auto& p2 = stepf[2];
    Label7.create(p2, "Label7", {.caption = "Define here channels usage. You can edit manually the grid below, or load default settings by selecting one from the menu.", .left = 240, .top = 240, .width = 4575, .height = 495, .fore = 0x0000FF});
    Label12.create(p2, "Label12", {.caption = kLabel12, .left = 240, .top = 720, .width = 4335, .height = 615, .fore = 0x008000});
    Line1.create(p2, "Line1", 4800, 240, 4800, 1320);
    Label9.create(p2, "Label9", {.caption = "GRID COMMANDS", .left = 5280, .top = 240, .width = 1455, .height = 255});
    add.create(p2, "add", {.caption = "new line", .left = 4920, .top = 600, .width = 615, .height = 735, .picture = Pic("add.svg")});
    delete_.create(p2, "delete", {.caption = "delete line", .left = 5640, .top = 600, .width = 615, .height = 735, .picture = Pic("cross.svg")});
    adddef.create(p2, "adddef", {.caption = "add default", .left = 6360, .top = 600, .width = 615, .height = 735, .picture = Pic("adddef.svg")});
    table.create(p2, "table", {.left = 120, .top = 1440, .width = 9255, .height = 4815, .accessibleName = "Channels"}, texts::kTableFormat, gui::ScrollBars::Both);
    // The floating editors are named by the column they edit: the first until they first open.
    editframe.create(p2, "editframe", {.caption = "Frame1", .left = 360, .top = 2520, .width = 2175, .height = 615, .back = 0xFFFF80, .visible = false, .tag = "0", .accessibleName = "dmx1"});
    editcombo.create(editframe, "editcombo", {.caption = "editcombo", .left = 0, .top = 240, .width = 2175, .height = 315, .accessibleName = "dmx1"});
    defaultsframe.create(p2, "defaultsframe", {.caption = "ADD Default types and settings (dmx will be auto incremented)", .left = 2640, .top = 1320, .width = 6255, .height = 2175, .back = 0xC0C0FF, .visible = false});
    for (const PresetButton& b : kPresetButtons) {
        Command6[b.index].create(defaultsframe, Indexed("Command6", b.index),
                                 {.caption = b.caption, .left = b.left, .top = b.top, .width = 615,
                                  .height = 615, .picture = Pic(b.picture)});
    }

    // ---- Page index 3 ----
    auto& p3 = stepf[3];
    Label6.create(p3, "Label6", {.caption = "Total number of dmx channels is", .left = 600, .top = 360, .width = 2535, .height = 495, .bold = true, .coveredRight = 615});
    dmxchannels.create(p3, "dmxchannels", {.caption = "99", .left = 2520, .top = 360, .width = 615, .height = 375, .points = 13.5, .bold = true, .fore = 0x000000, .back = 0xC0C0C0, .align = Align::Centre});
    Label24.create(p3, "Label24", {.caption = "Add your own text that will be displayed on the desk when patching the fixture", .left = 600, .top = 1080, .width = 3615, .height = 615});
    patchdisplay.create(p3, "patchdisplay", {.caption = kPatchText, .left = 4320, .top = 360, .width = 3015, .height = 2175, .points = 9.75, .bold = true, .fore = 0xFFFFC0, .back = 0x8080FF, .align = Align::Centre, .maxLength = common::kMaxPatchTextLength, .multiLine = true});
    Label25.create(p3, "Label25", {.caption = "Add more comments that will be inserted in the file, if you want ", .left = 360, .top = 2760, .width = 4575, .height = 255});
    morecomment.create(p3, "morecomment", {.left = 360, .top = 3120, .width = 8895, .height = 1095, .multiLine = true, .scrollBars = true});
    Label26.create(p3, "Label26", {.caption = "How to continue??????", .left = 360, .top = 4440, .width = 3495, .height = 375, .points = 12, .bold = true});
    Label27.create(p3, "Label27", {.caption = "The following steps are optional, if you don't want to do that then you have finished!", .left = 360, .top = 4920, .width = 6135, .height = 255});
    goonpalettes.create(p3, "goonpalettes", {.caption = "Define palettes", .left = 360, .top = 5280, .width = 1935, .height = 375, .enabled = false});
    goonmacros.create(p3, "goonmacros", {.caption = "Define macros", .left = 2520, .top = 5280, .width = 2055, .height = 375, .enabled = false});
    goonrange.create(p3, "goonrange", {.caption = "Define range tables", .left = 4800, .top = 5280, .width = 2535, .height = 375});

    // ---- Page index 6 ----
    auto& p6 = stepf[6];
    Label13.create(p6, "Label13", {.caption = "Channel usage:", .left = 240, .top = 360, .width = 4335, .height = 255});
    rpict.create(p6, "rpict", {.left = 240, .top = 600, .width = 4335, .height = 255, .fore = 0xFFC080, .back = 0xE0E0E0}, 255, 10);
    range.create(p6, "range", {.left = 240, .top = 840, .width = 4320, .height = 4815, .accessibleName = "Ranges"}, texts::kRangeFormat, gui::ScrollBars::Vertical);
    Command2.create(p6, "Command2", {.caption = "auto split", .left = 4560, .top = 960, .width = 615, .height = 975, .toolTip = "automatically splits selected range into ranges of same width", .picture = Pic("split.svg")});
    rmerge.create(p6, "rmerge", {.caption = "merge", .left = 4560, .top = 2040, .width = 615, .height = 615, .toolTip = "merge selected rows", .picture = Pic("merge.svg")});
    rclear.create(p6, "rclear", {.caption = "clear", .left = 4560, .top = 2760, .width = 615, .height = 615, .toolTip = "clear table (create one range 0-255)", .picture = Pic("cross.svg")});
    Command7.create(p6, "Command7", {.caption = "delete", .left = 6000, .top = 2760, .width = 615, .height = 615, .picture = Pic("cross.svg")});
    Image1[0].create(p6, Indexed("Image1", 0), {.left = 4680, .top = 3480, .width = 480, .height = 480, .picture = Pic("arrow_left.svg")});
    Command3.create(p6, "Command3", {.caption = "load", .left = 5160, .top = 3480, .width = 855, .height = 615, .picture = Pic("folder.svg")});
    Command5.create(p6, "Command5", {.caption = "over write", .left = 5160, .top = 4200, .width = 855, .height = 615, .picture = Pic("floppy_arrow.svg")});
    Image1[1].create(p6, Indexed("Image1", 1), {.left = 6120, .top = 4320, .width = 480, .height = 480, .picture = Pic("arrow_right.svg")});
    Command4.create(p6, "Command4", {.caption = "save new", .left = 5160, .top = 4920, .width = 855, .height = 615, .picture = Pic("floppy_spark.svg")});
    Image1[2].create(p6, Indexed("Image1", 2), {.left = 6120, .top = 5040, .width = 480, .height = 480, .picture = Pic("arrow_right.svg")});
    rangeslist.create(p6, "rangeslist", {.left = 6600, .top = 240, .width = 2655, .height = 5910, .accessibleName = "Saved range tables"});
    reditframe.create(p6, "reditframe", {.caption = "Frame1", .left = 960, .top = 3360, .width = 2175, .height = 615, .back = 0xFFFF80, .visible = false, .tag = "0", .accessibleName = "from"});
    redittext.create(reditframe, "redittext", {.caption = "Text1", .left = 0, .top = 240, .width = 2175, .height = 285, .tag = "0", .accessibleName = "from"});
    autoframe.create(p6, "autoframe", {.caption = "Split selected range into regular intervals:", .left = 960, .top = 840, .width = 3615, .height = 1815, .back = 0xC0C0FF, .visible = false});
    autolabel.create(autoframe, "autolabel", {.caption = "range", .left = 120, .top = 360, .width = 3375, .height = 255});
    Label33.create(autoframe, "Label33", {.caption = "no. of ranges:", .left = 120, .top = 840, .width = 1095, .height = 255});
    arno.create(autoframe, "arno", {.caption = "10", .left = 1800, .top = 840, .width = 495, .height = 285});
    Label32.create(autoframe, "Label32", {.caption = "description prefix:", .left = 120, .top = 1320, .width = 1335, .height = 255});
    arpre.create(autoframe, "arpre", {.caption = "splitted", .left = 1440, .top = 1320, .width = 1335, .height = 285});
    Command1.create(autoframe, "Command1", {.caption = "X", .left = 3000, .top = 720, .width = 495, .height = 375, .accessibleName = "Close"});
    rgo.create(autoframe, "rgo", {.caption = "OK", .left = 3000, .top = 1200, .width = 495, .height = 375});

    // Each page's message label, red and bold, emptied before the page can be seen.
    for (int i = 0; i < 7; ++i) {
        const Place& at = kErrorPlaces[i];
        errormessage[i].create(stepf[i], Indexed("errormessage", i),
                               {.caption = kErrorText, .left = at.left, .top = at.top,
                                .width = at.width, .height = at.height, .bold = true,
                                .fore = kRed});
    }

    // ---- On the form, below the pages ----
    Label8.create(main, "Label8", {.caption = "Rigwright", .left = 120, .top = 6720, .width = 3735, .height = 495, .points = 18, .bold = true, .italic = true, .fore = 0x800080});
    nexts.create(main, "nexts", {.caption = "Next >", .left = 8520, .top = 6720, .width = 1095, .height = 375});
    previous.create(main, "previous", {.caption = "< Previous", .left = 4920, .top = 6720, .width = 1095, .height = 375});
    finished.create(main, "finished", {.caption = "Finished!", .left = 7320, .top = 6720, .width = 1095, .height = 375});
    cancel.create(main, "cancel", {.caption = "Cancel", .left = 6120, .top = 6720, .width = 1095, .height = 375});

    // A screen reader names each input by the label beside it.
    Label1.setBuddy(manifacturer);
    Label2.setBuddy(model);
    Label3.setBuddy(nameondesk);
    Label10.setBuddy(degreespan);
    Label11.setBuddy(degreestilt);
    Label24.setBuddy(patchdisplay);
    Label25.setBuddy(morecomment);
    Label13.setBuddy(rpict);
    Label33.setBuddy(arno);
    Label32.setBuddy(arpre);
    Label4.setDescribes(nameondesk);
    Label5.setLabelFor({&movinghead, &mirror, &otherkind});

    // What changes on Step 4 by itself is said as it changes.
    errormessage[3].AnnounceChanges();
    dmxchannels.AnnounceChanges(Label6.Caption());

    gui::TabOrder({&manifacturer, &model, &nameondesk, &movinghead, &mirror, &otherkind});
    gui::TabOrder({&nexts, &previous, &finished, &cancel});
}
// clang-format on
