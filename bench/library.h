#pragma once
// The benchmark rows of what comes in from files, and the child processes they time.

#include <QString>
#include <vector>

#include "measure.h"

struct MainForm;

// Child: the program started with a file to open (path, mode), to its first paint; prints
// the milliseconds.
int OpenChild(int argc, char** argv);
// Child: converts the first 10 installed QLC+ fixtures, then all; prints the resident MiB
// after each.
int ConvertMemoryChild(int argc, char** argv);

// Milliseconds from starting the benchmark with `args` to its window shown on DISPLAY.
double VisibleOnce(const QString& self, const QStringList& args);

// `f` holds a table of 32,767 rows, which is written and opened again.
void LibraryRows(std::vector<bench::Row>& rows, const QString& self, MainForm& f);
