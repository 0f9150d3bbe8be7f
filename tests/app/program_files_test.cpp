// Where the program finds orvan.ini, Lang.ini and the demo: beside the
// executable while that orvan.ini can be written, otherwise the installed
// data folder and a per-user copy.
#include "app/program_files.h"
#include "player/player_controls.h"
#include "playlist/playlist_model.h"
#include "program_fixture.h"

#include <QDir>
#include <QFileInfo>
#include <tuple>
#include <unistd.h>

// Failures show texts as text.
static void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }

namespace Orvane {
namespace {

// A program folder, an installed data folder and a user's home, all fresh
// (each made when a file is shipped to it), and the program's boxes recorded.
class Program_Files_Test : public Orvane::Test::Program_Fixture {
protected:
    QString Program_Folder() const { return root.File("bin"); }
    QString Data_Folder() const { return root.File("share/orvane"); }
    QString Config_Home() const { return root.File("home/.config"); }
    QString Data_Home() const { return root.File("home/.local/share"); }
    QString User_Config() const { return Config_Home() + "/orvane/orvan.ini"; }

    static void Ship(const QString& folder, const QString& name,
                     QFile::Permissions permissions = QFile::ReadOwner | QFile::WriteOwner)
    {
        ASSERT_TRUE(QDir().mkpath(folder));
        ASSERT_TRUE(QFile::copy(QStringLiteral(ORVANE_SOURCE_DIR "/resources/") + name, folder + '/' + name));
        ASSERT_TRUE(QFile::setPermissions(folder + '/' + name, permissions));
    }
    Program_Files Locate() const
    {
        return Locate_Program_Files(
            Program_Places{Program_Folder(), Config_Home(), Data_Home(), {root.File("other/orvane"), Data_Folder()}});
    }
    // Portable, the orvan.ini read and written, the one a user's copy starts from, the Lang.ini's folder.
    std::tuple<bool, QString, QString, QString> Located() const
    {
        const Program_Files files = Locate();
        return {files.Portable, files.Config_File(), files.First_Config, files.Language_Folder};
    }

    Orvane::Test::Temp_Folder root;
};

TEST_F(Program_Files_Test, TheModeFollowsWhetherOrvanIniBesideTheProgramCanBeWritten)
{
    Ship(Data_Folder(), "orvan.ini", QFile::ReadOwner);
    Ship(Data_Folder(), "Lang.ini", QFile::ReadOwner);
    // Installed: nothing beside the executable.
    EXPECT_EQ(Located(), std::tuple(false, User_Config(), Data_Folder() + "/orvan.ini", Data_Folder()));
    // The user's own Lang.ini replaces the shipped one.
    Ship(Data_Home() + "/orvane", "Lang.ini");
    EXPECT_EQ(Locate().Language_Folder, Data_Home() + "/orvane");
    // Portable: a writable orvan.ini beside the executable.
    Ship(Program_Folder(), "orvan.ini");
    Ship(Program_Folder(), "Lang.ini");
    EXPECT_EQ(Located(), std::tuple(true, Program_Folder() + "/orvan.ini", QString(), Program_Folder()));
}

TEST_F(Program_Files_Test, AReadOnlyProgramFolderShipsItsFilesAndEachUserGetsACopy)
{
    Ship(Program_Folder(), "orvan.ini", QFile::ReadOwner);
    Ship(Program_Folder(), "Lang.ini", QFile::ReadOwner);
    ASSERT_TRUE(QFile::setPermissions(Program_Folder(), QFile::ReadOwner | QFile::ExeOwner));
    const bool writable_anyway = access(qPrintable(Program_Folder() + "/orvan.ini"), W_OK) == 0;
    const auto located = Located();
    QFile::setPermissions(Program_Folder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    if (writable_anyway)
        GTEST_SKIP() << "this user may write a read-only file (root): the folder is not read-only to it";
    EXPECT_EQ(located, std::tuple(false, User_Config(), Program_Folder() + "/orvan.ini", Program_Folder()));
}

// The whole program installed: the user's copy is made once, read and
// written, the shipped file is never touched, the demo opens at the first
// start only.
TEST_F(Program_Files_Test, AnInstalledProgramKeepsTheUsersSettingsAndShowsTheDemoOnce)
{
    Ship(Data_Folder(), "orvan.ini", QFile::ReadOwner);
    Ship(Data_Folder(), "Lang.ini", QFile::ReadOwner);
    ASSERT_TRUE(QDir().mkpath(Data_Folder() + "/demo"));
    root.Write("share/orvane/demo/demo.orx", Orvane::Test::Orx_Track("Demo", Orvane::Test::Media().Wav));
    const QByteArray shipped = root.Read("share/orvane/orvan.ini");
    const Program_Files files = Locate();
    {
        Program program(files);
        Start_Unrolled(program, {});
        ASSERT_TRUE(QTest::qWaitFor([&] { return program.Model().Track_Count() == 1; }, 3000));
        program.Controls().Gestion_KeyPress('8');
        program.Controls().Quit();
    }
    EXPECT_EQ(root.Read("home/.config/orvane/orvan.ini").split('\n').value(27), " 4 \r");  // shipped 3, one up
    EXPECT_TRUE(QFileInfo(User_Config()).permissions() & QFile::WriteOwner);
    EXPECT_EQ(root.Read("share/orvane/orvan.ini"), shipped);

    Program second(files);
    Start_Unrolled(second, {});
    EXPECT_EQ(second.Model().Track_Count(), 0);
    EXPECT_EQ(second.Current_Settings().Volume_Setting, 4) << "the user's copy, not a new one";
    EXPECT_TRUE(boxes.Boxes().empty()) << Last_Box();
}

} // namespace
} // namespace Orvane
