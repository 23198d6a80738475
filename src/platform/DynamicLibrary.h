// Code that is found and loaded while the program runs.
#pragma once
#include <string>

namespace morvane {

// What the file names of dynamic libraries end with.
inline constexpr const char* LibraryEnding = ".so";

// A function of a dynamic library; nullptr, with the reason in Error, if the library cannot be
// loaded or lacks it. The library stays until the program ends: what it has handed to others, such
// as the classes of its windows, would otherwise point nowhere.
void* FunctionOfLibrary(const std::string& Path, const char* Function, std::string& Error);

} // namespace morvane
