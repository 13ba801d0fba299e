// The atlas lookup: a search box that lists the atlas' places as the user
// types, the picked place's latitude, longitude and the time in force there
// at the birth, and Lookup, which hands them to the input window. Where the
// clocks were changed at the birth time the two readings are offered and
// the user chooses.
#pragma once

#include <QDialog>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "atlas/AtlasLookup.h"
#include "atlas/PlaceIndex.h"

namespace Ui {
class ACS_Atlas;
}

namespace kal::ui {

class AppContext;

class ACS_Atlas : public QDialog {
    Q_OBJECT

  public:
    explicit ACS_Atlas(AppContext& ctx, QWidget* parent = nullptr);
    ~ACS_Atlas() override;

    // The birth date and 24-hour clock time the lookup is asked for.
    const LocalClock& birthClock() const { return clock_; }
    // The places listed, best first.
    const std::vector<PlaceMatch>& matches() const { return matches_; }

    // At most this many places are listed.
    static constexpr std::size_t kListLimit = 100;
    // Lookup at a change of the clocks before a reading is chosen.
    static constexpr const char* kChooseReadingText =
        "The clocks were changed at the birth time: choose one of the two readings first.";

  public slots:
    void txtPlace_Change();
    void cmdLookup_Click();
    void cmdClose_Click();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Form_Load();
    // The picked place's details and, at a change of the clocks, its two
    // readings with neither chosen.
    void showPickedPlace();
    // The reading the lookup takes: the only one, or the one the user chose
    // at a change of the clocks; null while none is chosen.
    const ZoneReading* chosenReading() const;

    AppContext& ctx_;
    std::unique_ptr<Ui::ACS_Atlas> ui;
    const PlaceIndex* index_ = nullptr;
    LocalClock clock_;
    std::vector<PlaceMatch> matches_;
    std::optional<std::uint32_t> picked_; // the place whose answer is held
    AtlasAnswer answer_;
};

} // namespace kal::ui
