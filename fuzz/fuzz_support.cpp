#include "fuzz_support.h"

#include "config/config_file.h"
#include "ui/message_box.h"

#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <cstdlib>
#include <memory>

namespace Orvane::Fuzz {

namespace {

QGuiApplication* application = nullptr;
QTemporaryDir* input_folder = nullptr;
QTemporaryDir* language_folder = nullptr;

// Millions of inputs are written; a folder in memory spares the disk.
QString Temporary_Root()
{
    return QFile::exists(QStringLiteral("/dev/shm")) ? QStringLiteral("/dev/shm/orvane-fuzz-XXXXXX")
                                                     : QString();
}

QTemporaryDir* Make_Folder()
{
    const QString root = Temporary_Root();
    auto* folder = root.isEmpty() ? new QTemporaryDir() : new QTemporaryDir(root);
    if (!folder->isValid())
        std::abort();
    return folder;
}

} // namespace

void Start(int* argc, char*** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Qt keeps argc by reference for its whole life.
    static int qt_argc = 1;
    static char* qt_argv[] = {argc && *argc > 0 ? (*argv)[0] : const_cast<char*>("fuzz"), nullptr};
    application = new QGuiApplication(qt_argc, qt_argv);
    input_folder = Make_Folder();
    language_folder = Make_Folder();
    if (!QFile::copy(QStringLiteral(ORVANE_SOURCE_DIR "/resources/Lang.ini"),
                     language_folder->filePath(QStringLiteral("Lang.ini"))))
        std::abort();
    // The folders go with the process, even when it ends on a finding.
    std::atexit([] {
        delete input_folder;
        delete language_folder;
    });
}

const Shipped& Start_With_Shipped_Settings(int* argc, char*** argv)
{
    Start(argc, argv);
    static Shipped shipped;
    Message_Box_Recorder recorder;
    if (!Read_Config_File(QStringLiteral(ORVANE_SOURCE_DIR "/resources/orvan.ini"), Shipped_Language_Folder(),
                          shipped.settings, shipped.texts))
        std::abort();
    return shipped;
}

QString Write_Input(const QString& name, const uint8_t* data, size_t size)
{
    const QString path = input_folder->filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        std::abort();
    file.write(reinterpret_cast<const char*>(data), qint64(size));
    return path;
}

QString Input_Folder() { return input_folder->path(); }

QString Shipped_Language_Folder() { return language_folder->path(); }

} // namespace Orvane::Fuzz
