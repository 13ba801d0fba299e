// The time-zone list beside the input window: a pick sets its time zone and
// East/West choice.
#pragma once

#include <QWidget>

#include <memory>

#include "birthdata/TimeZones.h"

class QListWidget;

namespace Ui {
class TimeZone;
}

namespace kal::ui {

class AppContext;

class TimeZone : public QWidget {
    Q_OBJECT

  public:
    explicit TimeZone(AppContext& ctx, QWidget* parent = nullptr);
    ~TimeZone() override;

    const ZoneTable& zones() const { return zones_; }

  public slots:
    void lstTimeZones_Click();
    void Command1_Click();

  private:
    AppContext& ctx_;
    std::unique_ptr<Ui::TimeZone> ui;
    QListWidget* lstTimeZones_ = nullptr;
    ZoneTable zones_;
};

} // namespace kal::ui
