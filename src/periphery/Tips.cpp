#include "periphery/Tips.h"

#include "base/TextFile.h"

namespace kal {

std::string TipFileMissingText() {
    return std::string("that the ") + kTipFileName + " file was not found?";
}

bool TipList::LoadTips(const std::filesystem::path& file) {
    tips_.clear();
    current_ = 0;
    if (file.empty()) return false;
    auto lines = ReadLines(file);
    if (!lines) return false;
    for (auto& line : *lines)
        if (line.find_first_not_of(" \t") != std::string::npos) tips_.push_back(std::move(line));
    NextTip();
    return true;
}

void TipList::NextTip() {
    if (tips_.empty()) return;
    ++current_;
    if (current_ > Count()) current_ = 1;
}

void TipList::GoBackTip() {
    if (tips_.empty()) return;
    --current_;
    if (current_ < 1) current_ = Count();
}

std::string TipList::CurrentText() const {
    if (current_ < 1 || current_ > Count()) return {};
    return tips_[static_cast<size_t>(current_ - 1)];
}

} // namespace kal
