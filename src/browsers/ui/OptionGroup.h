// A framed group of option buttons that works as one control array: the
// buttons share the group's name (Option1, Option2 ...) and are told apart
// by their index; the group reports a button that gets the focus (or is
// clicked) and a button that is double-clicked.
#pragma once

#include <QGroupBox>
#include <QList>
#include <QStringList>

#include <array>
#include <string_view>

class QAction;
class QMainWindow;
class QPushButton;
class QRadioButton;

namespace kal::ui {

class OptionGroup : public QGroupBox {
    Q_OBJECT

  public:
    // `name` is the buttons' objectName; the frame is named "fra" + name.
    // The buttons are laid out top to bottom in `columns` columns.
    OptionGroup(const QString& name, const QString& caption, const QStringList& captions,
                int columns, QWidget* parent = nullptr);

    QList<QRadioButton*> buttons;
    QRadioButton* button(int index) const { return buttons.at(index); }
    // Marks the button of that index.
    void mark(int index);
    // The index of the marked button, -1 when none is.
    int marked() const;

  signals:
    void gotFocus(int index);
    void dblClick(int index);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

// The captions of a group's buttons.
template <size_t N> QStringList CaptionList(const std::array<std::string_view, N>& captions) {
    QStringList list;
    for (auto c : captions) list << QString::fromLatin1(c.data(), qsizetype(c.size()));
    return list;
}

// A push button with its objectName.
QPushButton* NamedButton(const char* name, const char* caption, QWidget* parent);

// The browser windows' menu: "&File" (mnuFile) with "E&xit" (mnuFileExit),
// whose action is returned.
QAction* AddFileExitMenu(QMainWindow* window);

} // namespace kal::ui
