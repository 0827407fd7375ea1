#pragma once
// The channel grid `table`: its commands and the next free offset.

#include <cstdint>

struct MainForm;

void add_Click(MainForm& f);
void delete_Click(MainForm& f);
void adddef_Click(MainForm& f);
std::int16_t NextFreeDmx(const MainForm& f);
