#pragma once
// The one form of the wizard. Every control is a member under its own name; the data of a
// fixture lives in these controls and nowhere else. The handlers are free functions over
// MainForm&, declared by the subsystem that owns them.

#include <array>
#include <cstdint>

#include "gui/control.h"
#include "gui/grid.h"
#include "gui/picture.h"

struct MainForm {
    MainForm();  // builds every control of the catalogue, hidden until Show

    gui::Form main;

    // The pages and what stands on the form below them.
    std::array<gui::Frame, 7> stepf;         // the seven pages, one shown at a time
    std::array<gui::Label, 7> errormessage;  // each page's red message line
    gui::Label Label8;                       // the program's name, bottom left
    gui::Button previous, cancel, finished, nexts;

    // Page index 0: general data.
    gui::Label Label1;  // "Manufacturer", beside manifacturer
    gui::Label Label2;  // "Model", beside model
    gui::Label Label3;  // "Name on desk", beside nameondesk
    gui::Label Label4;  // the rule for the name on the desk: 11 characters, no blanks
    gui::Label Label5;  // "Fixture type:", the title of the three options
    gui::TextBox manifacturer, model, nameondesk;
    gui::OptionButton movinghead, mirror, otherkind;
    gui::Button openfixture;  // opens a fixture file or a QLC+ fixture to start from

    // Page index 1: limits, patching, degrees.
    gui::CheckBox Check3;  // default limits, always ticked, never enabled
    gui::CheckBox Check2;  // default patching information, always ticked, never enabled
    gui::Frame Frame6;     // "Mirror": the pan and tilt degrees of a mirror or moving head
    gui::Label Label10;    // "PAN DEGREES", beside degreespan
    gui::Label Label11;    // "TILT DEGREES", beside degreestilt
    gui::TextBox degreespan, degreestilt;

    // Page index 2: the channel table.
    gui::Label Label7;                 // what the page is for
    gui::Label Label12;                // what the two dmx columns hold
    gui::Label Label9;                 // "GRID COMMANDS", the title of the three buttons beside it
    gui::Line Line1;                   // between the notes and the grid's buttons
    gui::Button add, delete_, adddef;  // `delete` is a keyword; its object name is "delete"
    gui::Grid table;
    gui::Frame editframe;  // the cell editor, floating over the current cell
    gui::ComboBox editcombo;
    gui::Frame defaultsframe;              // the preset panel
    std::array<gui::Button, 25> Command6;  // its preset buttons, by preset number

    // Page index 3: text for the desk, comment, how to continue.
    gui::Label Label6;  // "Total number of dmx channels is", before dmxchannels
    gui::Label dmxchannels;
    gui::Label Label24;  // what patchdisplay is for, beside it
    gui::Label Label25;  // what morecomment is for, above it
    gui::Label Label26;  // "How to continue??????", the title of the three check boxes
    gui::Label Label27;  // that the pages after this one are optional
    gui::TextBox patchdisplay, morecomment;
    gui::CheckBox goonpalettes, goonmacros, goonrange;

    // Page index 6: the range table.
    gui::Label Label13;  // "Channel usage:", above rpict
    gui::Picture rpict;  // a bar for each range of the channel's values
    gui::Grid range;
    gui::Button Command2;  // "auto split": opens autoframe on the current range
    gui::Button rmerge, rclear;
    // The saved range tables, rangeslist, with their buttons, which do nothing yet:
    gui::Button Command7;              // "delete"
    gui::Button Command3;              // "load"
    gui::Button Command5;              // "over write"
    gui::Button Command4;              // "save new"
    std::array<gui::Image, 3> Image1;  // arrows between those buttons and the list
    gui::ListBox rangeslist;
    gui::Frame reditframe;  // the cell editor of the range table
    gui::TextBox redittext;
    gui::Frame autoframe;  // the auto split dialog
    gui::Label autolabel;  // the range it splits
    gui::Label Label33;    // "no. of ranges:", beside arno
    gui::Label Label32;    // "description prefix:", beside arpre
    gui::TextBox arno;     // how many ranges
    gui::TextBox arpre;    // the start of each new range's label
    gui::Button Command1;  // "X": closes autoframe, as Escape does
    gui::Button rgo;       // "OK": splits, as Return does

    // The engine's own state.
    std::int16_t CurrentStep = 0;
    bool CanFinish = false;
    // The .R20 file the pages were filled from, whole path; the first save proposes it.
    QString OpenedFile;
};

// The texts of the form that other parts of the wizard use as they stand.
namespace texts {
inline constexpr auto kCaption = "Tolvane - Rigwright";
inline constexpr auto kTableFormat =
    "#|dmx1|dmx2|channel type|attribute type|key|wheel|attribute label|curve|inv|ratio%|locate|"
    "highlight|lowlight|comment";
inline constexpr auto kRangeFormat =
    "^# |^ from |^   to   |^                                                   label";
}  // namespace texts
