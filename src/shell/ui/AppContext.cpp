#include "shell/ui/AppContext.h"

#include <QApplication>
#include <QGuiApplication>

#include "shell/ui/OutputD1.h"
#include "shell/ui/SelectFIle.h"

namespace kal::ui {

namespace {

AppContext::MessageSink& messageSink() {
    static AppContext::MessageSink sink;
    return sink;
}
AppContext::QuestionSink& questionSink() {
    static AppContext::QuestionSink sink;
    return sink;
}
AppContext::FileSink& fileSink() {
    static AppContext::FileSink sink;
    return sink;
}

// The hourglass pointer for the life of a command.
struct WaitCursor {
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
};

} // namespace

QMessageBox::Icon ToQtIcon(Icon icon) {
    switch (icon) {
    case Icon::Exclamation:
        return QMessageBox::Warning;
    case Icon::Critical:
        return QMessageBox::Critical;
    case Icon::Question:
        return QMessageBox::Question;
    case Icon::Information:
        break;
    }
    return QMessageBox::Information;
}

void ShowMessageBox(const Message& m, QWidget* parent) {
    QMessageBox box(ToQtIcon(m.icon), QString::fromStdString(m.caption),
                    QString::fromStdString(m.text), QMessageBox::Ok, parent);
    box.exec();
}

AppContext::AppContext(Session& session, QObject* parent) : QObject(parent), session_(session) {}

AppContext::~AppContext() {
    for (auto& [name, w] : windows_)
        if (w) delete w.data();
}

void AppContext::setMessageSink(MessageSink sink) {
    messageSink() = std::move(sink);
}
void AppContext::setQuestionSink(QuestionSink sink) {
    questionSink() = std::move(sink);
}
void AppContext::setFileSink(FileSink sink) {
    fileSink() = std::move(sink);
}

void AppContext::showMessage(const Message& m, QWidget* parent) {
    // A message box never sits under an hourglass.
    bool waiting = QApplication::overrideCursor() != nullptr;
    if (waiting) QApplication::setOverrideCursor(Qt::ArrowCursor);
    if (messageSink())
        messageSink()(m, parent);
    else
        ShowMessageBox(m, parent ? parent : mainWindow_.data());
    if (waiting) QApplication::restoreOverrideCursor();
}

void AppContext::showMessages(const Messages& ms, QWidget* parent) {
    for (const auto& m : ms) showMessage(m, parent);
}

QMessageBox::StandardButton AppContext::ask(const Message& m, QMessageBox::StandardButtons buttons,
                                            QWidget* parent) {
    if (questionSink()) return questionSink()(m, buttons, parent);
    QMessageBox box(ToQtIcon(m.icon), QString::fromStdString(m.caption),
                    QString::fromStdString(m.text), buttons, parent ? parent : mainWindow_.data());
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

Message AppContext::NotAvailableMessage(const QString& what) {
    return {(what + " is not available yet.").toStdString(), "Information", Icon::Information};
}

void AppContext::notAvailable(const QString& what, QWidget* parent) {
    showMessage(NotAvailableMessage(what), parent);
}

QString AppContext::selectFile(const QString& pattern, QWidget* parent) {
    if (fileSink()) return fileSink()(pattern, parent);
    SelectFIle dlg(*this, parent ? parent : mainWindow_.data());
    dlg.setPattern(pattern);
    dlg.exec();
    return dlg.SelectedFile();
}

void AppContext::registerWindow(const QString& name, WindowFactory factory) {
    factories_[name] = std::move(factory);
}

bool AppContext::isRegistered(const QString& name) const {
    return factories_.count(name) != 0;
}

QWidget* AppContext::window(const QString& name) const {
    auto it = windows_.find(name);
    return it == windows_.end() ? nullptr : it->second.data();
}

QWidget* AppContext::loadWindow(const QString& name) {
    if (QWidget* w = window(name)) return w;
    auto f = factories_.find(name);
    if (f == factories_.end()) return nullptr;
    QWidget* w = f->second(*this, mainWindow_.data());
    if (!w) return nullptr;
    if (!w->isWindow()) w->setWindowFlag(Qt::Window, true);
    w->setAttribute(Qt::WA_DeleteOnClose, true);
    if (w->objectName().isEmpty()) w->setObjectName(name);
    // A window without a place of its own opens below the main strip, not
    // over its menu.
    if (mainWindow_ && w->pos() == QPoint(0, 0))
        w->move(mainWindow_->x() + 40, mainWindow_->frameGeometry().bottom() + 40);
    windows_[name] = w;
    emit windowLoaded(name, w);
    return w;
}

QWidget* AppContext::showWindow(const QString& name, const QString& what) {
    QWidget* w = loadWindow(name);
    if (!w) {
        notAvailable(what.isEmpty() ? name : what);
        return nullptr;
    }
    if (w->isMinimized()) w->showNormal();
    w->show();
    w->raise();
    w->activateWindow();
    return w;
}

void AppContext::hideWindow(const QString& name) {
    if (QWidget* w = window(name)) w->hide();
}

void AppContext::unloadWindow(const QString& name) {
    auto it = windows_.find(name);
    if (it == windows_.end()) return;
    QPointer<QWidget> w = it->second;
    windows_.erase(it);
    if (!w) return;
    emit windowUnloaded(name);
    w->setAttribute(Qt::WA_DeleteOnClose, false);
    w->close();
    // Released once the current event is done: a window may be unloaded
    // from inside one of its own handlers.
    w->deleteLater();
}

void AppContext::registerCommand(const QString& name, std::function<void(AppContext&)> command) {
    commands_[name] = std::move(command);
}

bool AppContext::hasCommand(const QString& name) const {
    return commands_.count(name) != 0;
}

void AppContext::runCommand(const QString& name, const QString& what) {
    auto it = commands_.find(name);
    if (it == commands_.end()) {
        notAvailable(what);
        return;
    }
    it->second(*this);
}

void AppContext::addTitleTask(std::function<void(AppContext&)> task) {
    titleTasks_.push_back(std::move(task));
}

void AppContext::runTitleTasks() {
    for (auto& task : titleTasks_) task(*this);
}

void AppContext::showDataPage() {
    if (session_.DataWindowMinimised || session_.out.AllCount() == 0) return;
    auto* data = qobject_cast<OutputD1*>(loadWindow("OutputD1"));
    if (!data) return;
    data->LoadPage();
}

void AppContext::runListing(const std::function<Messages(Session&)>& listing, QWidget* parent) {
    Messages msgs;
    {
        WaitCursor wait;
        msgs = listing(session_);
    }
    showMessages(msgs, parent);
    // A listing that could not run leaves the page empty and the window as
    // it was.
    if (session_.out.PageCount() > 0) showDataPage();
}

bool AppContext::calcChart(QWidget* parent) {
    Messages msgs;
    {
        WaitCursor wait;
        msgs = session_.CalcChart();
    }
    showMessages(msgs, parent);
    if (session_.InputError) return false;
    emit chartCalculated();
    showDataPage();
    // The chart wheel is rebuilt from the new chart.
    if (isRegistered("Wheels")) {
        unloadWindow("Wheels");
        showWindow("Wheels");
    }
    return true;
}

} // namespace kal::ui
