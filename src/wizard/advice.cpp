#include "wizard/advice.h"

#include "wizard/main_form.h"

void GiveAdvice(MainForm&) {}
