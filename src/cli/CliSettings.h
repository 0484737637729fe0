#pragma once
// The settings a command works with: the user's settings file when there is one, else the
// defaults. A command never creates the settings folder or writes the file.
#include "core/Settings.h"

namespace lumivex {

class CliSettings {
  public:
    static Settings Load();
};

}  // namespace lumivex
