#pragma once

// Looks at everything that the program needs and tells what is right, what is wrong and how to mend it; with
// and without a running program, on a desktop and without one, within seconds.
namespace Doctor {

// Prints the report and returns the exit code: done when nothing is wrong.
int run(int& argc, char** argv, bool isJson);

}
