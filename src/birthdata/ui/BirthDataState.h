// The names window's program-wide flags, kept once per program beside the
// context: KeepInputOnReload, ListLocked, LockedIndex, LockSync and
// CurrentRecord.
#pragma once

#include <QObject>

#include "birthdata/NamesFile.h"

namespace kal::ui {

class AppContext;

class BirthDataState : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;

    NamesListState names;

    // The state of this program (made on first use).
    static BirthDataState& of(AppContext& ctx);
    static NamesListState& flags(AppContext& ctx) { return of(ctx).names; }
};

} // namespace kal::ui
