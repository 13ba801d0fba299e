#include "atlas/AtlasData.h"

namespace kal {

void AtlasData::SetFile(std::filesystem::path file) {
    file_ = std::move(file);
    index_.reset();
    error_.clear();
    read_ = false;
}

const PlaceIndex* AtlasData::Index() {
    if (!read_) {
        read_ = true;
        if (file_.empty()) {
            error_ = "There is no atlas.";
        } else {
            PlaceIndex::Loaded loaded = PlaceIndex::Load(file_);
            index_ = std::move(loaded.index);
            error_ = std::move(loaded.error);
        }
    }
    return index_ ? &*index_ : nullptr;
}

} // namespace kal
