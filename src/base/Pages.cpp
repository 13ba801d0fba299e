#include "base/Pages.h"

namespace kal {

std::vector<std::string> PagedLines(const std::vector<std::string>& lines,
                                    const PageLayout& layout) {
    std::vector<std::string> out;
    out.reserve(lines.size() + lines.size() / 8 + 8);
    auto blanks = [&](float n) {
        for (int k = 1; static_cast<float>(k) <= n; ++k) out.emplace_back();
    };
    int count = layout.firstCount;
    int page = 1;
    bool textFormFeed = false;
    for (const auto& line : lines) {
        out.push_back(line);
        if (layout.textFormFeedsRestart && IsFormFeedLine(line)) {
            count = 0;
            textFormFeed = true;
        }
        if (static_cast<float>(count) == layout.pageEndAt) {
            if (layout.footer) {
                blanks(static_cast<float>(layout.footerGap));
                out.push_back(layout.footer(page, false));
            }
            out.push_back(FormFeedLine);
            count = 0;
            ++page;
            if (layout.topLines > 0) {
                blanks(layout.topLines);
                for (int k = 1; static_cast<float>(k) <= layout.topLines; ++k) ++count;
            }
        }
        ++count;
    }
    switch (layout.end) {
    case PageLayout::End::FormFeedUnlessTextHadOne:
        if (!textFormFeed) out.push_back(FormFeedLine);
        break;
    case PageLayout::End::PadLastPage:
        if (static_cast<float>(count) > layout.topLines + 1) {
            blanks(layout.pageEndAt - static_cast<float>(count) + 1 +
                   static_cast<float>(layout.footerGap));
            if (layout.footer) out.push_back(layout.footer(page, true));
        }
        out.push_back(FormFeedLine);
        break;
    }
    return out;
}

std::vector<std::vector<std::string>> SplitAtFormFeeds(const std::vector<std::string>& lines) {
    std::vector<std::vector<std::string>> pages(1);
    for (const auto& line : lines) {
        if (IsFormFeedLine(line))
            pages.emplace_back();
        else
            pages.back().push_back(line);
    }
    if (pages.size() > 1 && pages.back().empty()) pages.pop_back();
    return pages;
}

} // namespace kal
