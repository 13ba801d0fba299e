// The saves only a window makes (the options, orb, header, names and cities
// editors and Restore Default Settings), failed and cut off at each step of
// their write as the core writers are: afterwards the file is the old one or
// the new one, byte for byte, a failed save is told, and no record of the
// names file is lost.
#include <QPlainTextEdit>
#include <QPushButton>
#include <QtTest>

#include <cerrno>
#include <iostream>

#include "ShellUiSupport.h"
#include "base/TextFile.h"
#include "shell/ui/WindowNames.h"

using namespace kal;
using kal::test::StartedProgram;
namespace fs = std::filesystem;

class WriteFaultsTest : public QObject {
    Q_OBJECT

  private slots:
    void everyEditorSaveAtEveryStep();
};

namespace {

struct EditorSave {
    const char* name;
    ui::WindowName window;
    const char* file;
    const char* button;
    // The text typed into the editor before Save; none for Restore.
    QString typed;
    bool names = false;
};

QString Lines(const char* line, int count) {
    QString text;
    for (int n = 0; n < count; ++n) text += QString(line).arg(n) + "\n";
    return text;
}

} // namespace

void WriteFaultsTest::everyEditorSaveAtEveryStep() {
    StartedProgram p;
    // The options file as the user edited it, so that Restore changes it.
    p.dir.Write("OPTIONS.OPT", "1      edited\r\n");
    const std::vector<EditorSave> saves = {
        {"options Save", ui::win::Options, "OPTIONS.OPT", "btnSave", Lines("%1      option", 244)},
        {"Restore Default Settings", ui::win::Options, "OPTIONS.OPT", "cmdRestoreDefault", {}},
        {"orb editor", ui::win::OrbsEdit, "NATAL.ORB", "btnSave", Lines("%1.5", 1200)},
        {"header editor", ui::win::P_Name, "PERSONAL.NAM", "btnSave", "A. N. Other\n"},
        {"names editor", ui::win::NameEdit, "NAMES.FIL", "btnSave", {}, true},
        {"cities editor", ui::win::LongLat, "GA_MA.LL", "btnSave",
         Lines("Town %1,Region,075.23,39.45", 2000)},
    };
    int points = 0, lost = 0;
    for (const EditorSave& e : saves) {
        const fs::path file = p.dir.path() / e.file;
        const std::string before = ReadFileBytes(file).value();
        QWidget* w = p.ctx->showWindow(e.window);
        QVERIFY2(w, e.name);
        auto* box = w->findChild<QPlainTextEdit*>("txtContent");
        auto* button = w->findChild<QPushButton*>(e.button);
        QVERIFY2(box && button, e.name);
        // The names file gains a record; the others take the text typed.
        const QString typed = e.names ? box->toPlainText() + Lines("Added %1,12 May 1959,10.43,"
                                                                   "A,6,75.23,39.45,",
                                                                   3)
                                      : e.typed;
        auto save = [&] {
            if (!e.typed.isEmpty() || e.names) box->setPlainText(typed);
            button->click();
        };
        const size_t told = p.dialogs->messages.size();
        const auto steps = test::WriteSteps(save);
        QCOMPARE(p.dialogs->messages.size(), told);
        const std::string after = ReadFileBytes(file).value();
        QVERIFY2(after != before && steps.size() >= 3, e.name);

        for (size_t k = 1; k <= steps.size(); ++k) {
            const std::string at = std::string(e.name) + ", step " + std::to_string(k);
            const int error = steps[k - 1] == WriteStep::Write ? ENOSPC : EIO;
            p.dir.Write(e.file, before);
            {
                test::WriteFault fault(static_cast<int>(k), error);
                save();
            }
            QVERIFY2(ReadFileBytes(file) == before, at.c_str());
            QVERIFY2(p.dialogs->messages.size() == told + 1, at.c_str());
            // Restore Default Settings has a message of its own.
            if (e.typed.isEmpty() && !e.names)
                QCOMPARE(p.dialogs->messages.back().text,
                         std::string("Error in operation. Cannot do what is requested."));
            else
                QVERIFY2(p.dialogs->messages.back().text.find(WriteErrorReason(error)) !=
                             std::string::npos,
                         at.c_str());
            p.dialogs->messages.pop_back();

            p.dir.Write(e.file, before);
            QVERIFY2(test::CrashAtWriteStep(static_cast<int>(k), save), at.c_str());
            const auto now = ReadFileBytes(file);
            QVERIFY2(now == before || now == after, at.c_str());
            if (e.names) lost += test::LostRecords(before, file);
            points += 2;
        }
        p.dir.Write(e.file, before);
        p.ctx->unloadWindow(e.window);
    }
    std::cout << "window fault points tried: " << points << ", records lost: " << lost << std::endl;
    QCOMPARE(lost, 0);
}

QTEST_MAIN(WriteFaultsTest)
#include "write_faults_test.moc"
