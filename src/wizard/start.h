#pragma once

struct MainForm;

// Wires the events, loads the form (Form_Load) and shows the window.
void StartWizard(MainForm& f);
