// The current names and cities files, with their defaults beside the program.
#pragma once

#include <QString>

#include <filesystem>

namespace kal::ui {

class AppContext;

std::filesystem::path NamesFile(AppContext& ctx);
std::filesystem::path CitiesFile(AppContext& ctx);
// The file's name after its last folder separator, upper-cased.
QString ListFileLabel(const std::filesystem::path& file);

} // namespace kal::ui
