#include "app/check_media_files.h"
#include "config/config_file.h"
#include "config/settings.h"
#include "language/text_table.h"
#include "support/hostile_files.h"
#include "support/temp_folder.h"
#include "ui/message_box.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTextStream>
#include <gtest/gtest.h>

#include <functional>

namespace Orvane {
namespace {

const QString Resources = QStringLiteral(ORVANE_SOURCE_DIR "/resources/");
const QString Access_Error = QStringLiteral("75, Path/File access error");

using Make = std::function<bool(const QString&)>;

struct Hostile {
    const char* what;
    Make make;
};

const Hostile Hostile_Files[] = {
    {"a named pipe", Orvane::Test::Make_Named_Pipe},
    {"a device", Orvane::Test::Make_Device_Link},
    {"a 2 GB file", [](const QString& path) { return Orvane::Test::Make_Sparse_File(path, qint64(2) << 30); }},
};

// Every reader of text files, in a program folder holding the shipped files.
class Hostile_Text_Files_Test : public testing::Test {
protected:
    void SetUp() override
    {
        for (const char* name : {"orvan.ini", "Lang.ini"})
            ASSERT_TRUE(QFile::copy(Resources + name, program_.File(name)));
        ASSERT_TRUE(texts_.Load_Language(program_.Path(), QStringLiteral("Français")));
    }

    QString Printed(int (*check)(const QString&, QTextStream&, const QString&), const QString& path) const
    {
        QString text;
        QTextStream out(&text);
        check(path, out, program_.Path());
        out.flush();
        return text;
    }

    Orvane::Test::Temp_Folder program_;
    Text_Table texts_;
    Message_Box_Recorder boxes_;
};

TEST_F(Hostile_Text_Files_Test, EveryReaderRefusesPipesDevicesAndHugeFilesWithTheAccessError)
{
    struct Reader {
        const char* file_name;
        std::function<QString(const QString& path)> read;
        QString refusal;
    };
    const Reader readers[] = {
        {"orvan.ini",
         [this](const QString& path) {
             Settings settings;
             Text_Table texts;
             Read_Config_File(path, program_.Path(), settings, texts);
             return boxes_.Last_Text();
         },
         // Refused before the language is loaded: the box's texts are still empty.
         "\n\n" + Access_Error + "\n\n"},
        {"Lang.ini",
         [this](const QString& path) {
             Text_Table texts;
             const bool loaded = texts.Load_Language(QFileInfo(path).absolutePath(), QStringLiteral("Français"));
             return QString(loaded ? "loaded" : "refused") + (boxes_.Boxes().empty() ? "" : " with a box");
         },
         "refused"},
        {"film.sub", [this](const QString& path) { return Printed(Check_Subtitle_File, path); },
         "ERROR: film.sub / " + texts_.Get_Text(1310) + " / " + Access_Error + "\n"},
        {"list.m3u", [this](const QString& path) { return Printed(Check_Playlist_File, path); },
         "ERROR: list.m3u / " + Access_Error + "\n"},
        {"list.orx", [this](const QString& path) { return Printed(Check_Playlist_File, path); },
         "ERROR: list.orx / " + Access_Error + "\n"},
    };
    for (const Reader& reader : readers) {
        for (const Hostile& hostile : Hostile_Files) {
            SCOPED_TRACE(std::string(reader.file_name) + " as " + hostile.what);
            Orvane::Test::Temp_Folder folder;
            const QString path = folder.File(reader.file_name);
            ASSERT_TRUE(hostile.make(path));
            boxes_.Clear();
            EXPECT_EQ(reader.read(path).toStdString(), reader.refusal.toStdString());
        }
    }
}

// The whole program, as a user runs it, on the file that would hang it: an
// answer, not a wait (the other files are the readers' own, tested above).
TEST(Check_Command, APipeIsAnErrorNotAWait)
{
    Orvane::Test::Temp_Folder folder;
    ASSERT_TRUE(Orvane::Test::Make_Named_Pipe(folder.File("x.sub")));
    QProcess process;
    process.start(QStringLiteral(ORVANE_BINARY_DIR "/orvane"), {"--check", folder.File("x.sub")});
    ASSERT_TRUE(process.waitForFinished(30000));
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_TRUE(process.readAllStandardOutput().startsWith("ERROR: x.sub / "));
}

} // namespace
} // namespace Orvane
