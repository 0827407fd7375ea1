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
    std::array<gui::Frame, 7> stepf;
    std::array<gui::Label, 7> errormessage;
    gui::Label Label8;
    gui::Button previous, cancel, finished, nexts;

    // Page index 0: general data.
    gui::Label Label1, Label2, Label3, Label4, Label5;
    gui::TextBox manifacturer, model, nameondesk;
    gui::OptionButton movinghead, mirror, otherkind;
    gui::Button openfixture;  // opens a fixture file or a QLC+ fixture to start from

    // Page index 1: limits, patching, degrees.
    gui::CheckBox Check3, Check2;
    gui::Frame Frame6;
    gui::Label Label10, Label11;
    gui::TextBox degreespan, degreestilt;

    // Page index 2: the channel table.
    gui::Label Label7, Label12, Label9;
    gui::Line Line1;
    gui::Button add, delete_, adddef;  // `delete` is a keyword; its object name is "delete"
    gui::Grid table;
    gui::Frame editframe;
    gui::ComboBox editcombo;
    gui::Frame defaultsframe;
    std::array<gui::Button, 25> Command6;

    // Page index 3: text for the desk, comment, how to continue.
    gui::Label Label6, dmxchannels, Label24, Label25, Label26, Label27;
    gui::TextBox patchdisplay, morecomment;
    gui::CheckBox goonpalettes, goonmacros, goonrange;

    // Page index 6: the range table.
    gui::Label Label13;
    gui::Picture rpict;
    gui::Grid range;
    gui::Button Command2, rmerge, rclear, Command7, Command3, Command5, Command4;
    std::array<gui::Image, 3> Image1;
    gui::ListBox rangeslist;
    gui::Frame reditframe;
    gui::TextBox redittext;
    gui::Frame autoframe;
    gui::Label autolabel, Label33, Label32;
    gui::TextBox arno, arpre;
    gui::Button Command1, rgo;

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
