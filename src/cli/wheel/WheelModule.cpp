// kaltrova-cli-wheel.so: the wheel drawn through Qt's painter for
// kaltrova-cli's wheel command, which loads it on demand.
#include "cli/WheelModule.h"

#include <QGuiApplication>

#include <cstdlib>
#include <cstring>
#include <exception>
#include <filesystem>
#include <memory>
#include <string>

#include "wheel/qt/QtCanvas.h"
#include "wheel/qt/WheelRender.h"

namespace fs = std::filesystem;

namespace kal {
namespace {

// A runtime directory of the command's own while it draws. Qt looks into
// the user's runtime directory when it starts (for a display server's
// socket) and complains on the standard error when XDG_RUNTIME_DIR is not
// set, as under cron, ssh without a session or a container; an empty private
// directory answers it and goes when the command ends.
class PrivateRuntimeDir {
  public:
    PrivateRuntimeDir() {
        const char* set = std::getenv("XDG_RUNTIME_DIR");
        if (set && *set) return;
        std::error_code ec;
        fs::path tmp = fs::temp_directory_path(ec);
        if (ec) tmp = "/tmp";
        std::string name = (tmp / "kaltrova-cli-XXXXXX").string();
        // mkdtemp makes it readable and writable by its owner only, as a
        // runtime directory must be.
        if (!mkdtemp(name.data())) return;
        dir_ = name;
        setenv("XDG_RUNTIME_DIR", name.c_str(), 1);
    }
    ~PrivateRuntimeDir() {
        if (dir_.empty()) return;
        unsetenv("XDG_RUNTIME_DIR");
        std::error_code ec;
        fs::remove_all(dir_, ec);
    }
    PrivateRuntimeDir(const PrivateRuntimeDir&) = delete;
    PrivateRuntimeDir& operator=(const PrivateRuntimeDir&) = delete;

  private:
    fs::path dir_;
};

struct Painter {
    std::unique_ptr<PrivateRuntimeDir> runtimeDir;
    std::string program;
    char* argv[2] = {nullptr, nullptr};
    int argc = 1;
    std::unique_ptr<QGuiApplication> gui;
    int fontId = -1;
};
Painter* painter = nullptr;

void Open(const char* program, const char* appPath) {
    if (painter) return;
    painter = new Painter;
    painter->runtimeDir = std::make_unique<PrivateRuntimeDir>();
    // Without a display, on the offscreen platform.
    if (!std::getenv("QT_QPA_PLATFORM") && !std::getenv("DISPLAY") &&
        !std::getenv("WAYLAND_DISPLAY"))
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
    painter->program = program;
    painter->argv[0] = painter->program.data();
    painter->gui = std::make_unique<QGuiApplication>(painter->argc, painter->argv);
    painter->fontId = RegisterWheelFonts(appPath);
}

bool KnowsFormat(const char* file) {
    return ExportFormatOf(file).has_value();
}

bool Write(const char* file, const WheelPaintInput& in, const char* glyphFont, int width,
           int height, char* error, std::size_t errorSize) {
    std::string err;
    try {
        if (auto e = ExportWheel(file, in, glyphFont, QSize(width, height))) err = *e;
    } catch (const std::exception& e) {
        err = e.what();
    }
    if (err.empty()) return true;
    if (errorSize > 0) {
        std::strncpy(error, err.c_str(), errorSize - 1);
        error[errorSize - 1] = '\0';
    }
    return false;
}

void Close() {
    if (!painter) return;
    RemoveWheelFonts(painter->fontId);
    painter->gui.reset();
    delete painter; // the runtime directory last
    painter = nullptr;
}

const WheelExporter exporter{WheelModuleVersion, Open, KnowsFormat, Write, Close};

} // namespace
} // namespace kal

extern "C" __attribute__((visibility("default"))) const void* KaltrovaWheelExporter() {
    return &kal::exporter;
}
