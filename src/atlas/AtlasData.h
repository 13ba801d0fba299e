// The atlas a session works with: the file found at start-up, its index read
// on the first lookup and kept for the program's run, and what the last
// lookup handed over to the input window.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "atlas/AtlasLookup.h"
#include "atlas/PlaceIndex.h"

namespace kal {

class AtlasData {
  public:
    // Takes the atlas file (empty: there is none); an index read before is
    // dropped.
    void SetFile(std::filesystem::path file);
    const std::filesystem::path& File() const { return file_; }

    // The index, read on first use; null when the file cannot be read, with
    // the reason in Error().
    const PlaceIndex* Index();
    const std::string& Error() const { return error_; }

    AtlasResults results;

  private:
    std::filesystem::path file_;
    std::optional<PlaceIndex> index_;
    std::string error_;
    bool read_ = false;
};

} // namespace kal
