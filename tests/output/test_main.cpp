#include "output_test.h"

RIGWRIGHT_TEST_MAIN(TestOutput)
