#include "support/form_fixture.h"

RIGWRIGHT_TEST_PROGRAM()
