#pragma once

#include <QString>

struct MainForm;

// Wires the events, loads the form (Form_Load), fills the pages from the fixture file at
// `fixturePath` when one is given (of a QLC+ fixture, the mode `mode` names), and shows the
// window.
void StartWizard(MainForm& f, const QString& fixturePath = {}, const QString& mode = {});
