#pragma once
// The 25 ready-made channel presets of the panel `defaultsframe`.

#include <QString>
#include <cstdint>

struct MainForm;

void Command6_Click(MainForm& f, std::int16_t Index);
QString SemicolonsToTabs(const QString& text);
