// The selections the meanings window and the delineation-by-keywords window
// share, kept once per program beside the context.
#pragma once

#include <QObject>

#include "browsers/Meanings.h"

namespace kal::ui {

class AppContext;

class BrowserState : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;

    BrowserSelections selections;

    // The state of this program (made on first use).
    static BrowserState& of(AppContext& ctx);
    static BrowserSelections& selectionsOf(AppContext& ctx) { return of(ctx).selections; }
};

// Shows a page a browser window composed: the page written and loaded into
// the data window, after the messages of the command.
void ShowBrowserPage(AppContext& ctx, const Messages& messages, QWidget* parent);

} // namespace kal::ui
