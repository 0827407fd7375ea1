#pragma once
// The fixture as the pages of the form hold it: what Finished writes.

#include "common/fixture.h"

struct MainForm;

common::Fixture ReadForm(const MainForm& f);
// The fixture type its options show.
common::FixtureType FormType(const MainForm& f);
