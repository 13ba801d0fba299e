// The cities window: the places of the current cities file; a pick fills
// the input window's longitude, latitude and time zone.
#pragma once

#include <QWidget>

#include <memory>
#include <vector>

#include "birthdata/CitiesFile.h"

class QLabel;
class QListWidget;

namespace Ui {
class Geograph;
}

namespace kal::ui {

class AppContext;

class Geograph : public QWidget {
    Q_OBJECT

  public:
    explicit Geograph(AppContext& ctx, QWidget* parent = nullptr);
    ~Geograph() override;

    const std::vector<CityRecord>& places() const { return places_; }
    void LoadCitiesList();
    void ShowListFileName();

  public slots:
    void CitiesOnFile_Click();
    void cmdNewFileList_Click();
    void cmdEditList_Click();
    void Command1_Click();

  protected:
    // Opened (after the Input command, a save, the editor's Quit or a switch
    // between names and cities) beside the input window, never over it.
    void showEvent(QShowEvent* event) override;

  private:
    AppContext& ctx_;
    std::unique_ptr<Ui::Geograph> ui;
    QListWidget* CitiesOnFile_ = nullptr;
    QLabel* lblCitiesOnFile_ = nullptr;
    std::vector<CityRecord> places_;
    bool loading_ = false;
};

} // namespace kal::ui
