#pragma once
// What a failed system call's error code means, in the words the program speaks to its user.
#include <string>

namespace lumivex {

// Japanese for the errors a card or a disk gives in practice; the C library's text otherwise.
std::string ErrorText(int errnum);

}  // namespace lumivex
