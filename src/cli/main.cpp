// lumivex: the headless command over the core library.

#include <cstdio>
#include <string>
#include <vector>

#include "cli/TopCommand.h"
#include "core/HeapTuning.h"

int main(int argc, char** argv) {
    lumivex::TuneHeapForScans();
    return lumivex::TopCommand().Run(std::vector<std::string>(argv + 1, argv + argc), stdout,
                                     stderr);
}
