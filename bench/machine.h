#pragma once

#include <string>

namespace machine {

/// Processor, compiler and toolkit, on one line.
std::string description();

} // namespace machine
