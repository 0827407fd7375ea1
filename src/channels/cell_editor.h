#pragma once
// The floating cell editor of the channel grid: opening it and the commit.

#include <QString>

struct MainForm;

void table_Click(MainForm& f);
void table_DblClick(MainForm& f);
void table_KeyPress(MainForm& f, int keyCode);
void editcombo_KeyPress(MainForm& f, int keyCode);
void FillEditCombo(MainForm& f, const QString& list);
