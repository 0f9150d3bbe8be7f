// Where the program finds orvan.ini, Lang.ini and the demo: beside the
// executable while that orvan.ini can be written, otherwise the installed
// data folder and a per-user copy.
#include "app/program.h"
#include "app/program_files.h"
#include "player/frm_player.h"
#include "player/player_controls.h"
#include "player/unroll.h"
#include "playlist/playlist_model.h"
#include "support/generated_media.h"
#include "support/playlist_text.h"
#include "support/temp_folder.h"
#include "ui/message_box.h"
#include "ui/skin_resources.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>
#include <unistd.h>

// Failures show texts as text.
static void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }

namespace Orvane {
namespace {

const QString Resources = QStringLiteral(ORVANE_SOURCE_DIR "/resources/");
// Inside the test's root folder.
const QString Shipped_Config = QStringLiteral("share/orvane/orvan.ini");
const QString User_Copy = QStringLiteral("home/.config/orvane/orvan.ini");

// A program folder, an installed data folder and a user's home, all fresh.
class Program_Files_Test : public testing::Test {
protected:
    void SetUp() override
    {
        for (const QString& folder : {Program_Folder(), Data_Folder(), Config_Home(), Data_Home()})
            ASSERT_TRUE(QDir().mkpath(folder));
    }

    QString Program_Folder() const { return root.File("bin"); }
    QString Data_Folder() const { return root.File("share/orvane"); }
    QString Config_Home() const { return root.File("home/.config"); }
    QString Data_Home() const { return root.File("home/.local/share"); }
    QString User_Folder() const { return Config_Home() + "/orvane"; }

    static void Ship(const QString& folder, const QString& name, QFile::Permissions permissions =
                                                                     QFile::ReadOwner | QFile::WriteOwner)
    {
        ASSERT_TRUE(QFile::copy(Resources + name, folder + '/' + name));
        ASSERT_TRUE(QFile::setPermissions(folder + '/' + name, permissions));
    }

    Program_Places Places() const
    {
        return Program_Places{Program_Folder(), Config_Home(), Data_Home(),
                              {root.File("other/orvane"), Data_Folder()}};
    }

    Orvane::Test::Temp_Folder root;
};

TEST_F(Program_Files_Test, TheModeFollowsWhetherOrvanIniBesideTheProgramCanBeWritten)
{
    struct Expected_Files {
        bool portable;
        QString config_folder, first_config, language_folder;
    };
    // Shipped in the data folder, and a user's own language file.
    Ship(Data_Folder(), "orvan.ini", QFile::ReadOwner);
    Ship(Data_Folder(), "Lang.ini", QFile::ReadOwner);
    const auto locate = [&] { return Locate_Program_Files(Places()); };

    // Installed: nothing beside the executable.
    const Expected_Files installed{false, User_Folder(), Data_Folder() + "/orvan.ini", Data_Folder()};
    // The user's Lang.ini replaces the shipped one.
    const Expected_Files own_language{false, User_Folder(), Data_Folder() + "/orvan.ini", Data_Home() + "/orvane"};
    // Portable: a writable orvan.ini beside the executable.
    const Expected_Files portable{true, Program_Folder(), "", Program_Folder()};

    std::vector<std::pair<std::function<void()>, Expected_Files>> steps = {
        {[] {}, installed},
        {[&] {
             QDir().mkpath(Data_Home() + "/orvane");
             Ship(Data_Home() + "/orvane", "Lang.ini");
         },
         own_language},
        {[&] {
             Ship(Program_Folder(), "orvan.ini");
             Ship(Program_Folder(), "Lang.ini");
         },
         portable},
    };
    for (const auto& [prepare, expected] : steps) {
        prepare();
        const Program_Files files = locate();
        SCOPED_TRACE(expected.language_folder.toStdString());
        EXPECT_EQ(files.Portable, expected.portable);
        EXPECT_EQ(files.Config_File(), expected.config_folder + "/orvan.ini");
        EXPECT_EQ(files.First_Config, expected.first_config);
        EXPECT_EQ(files.Language_Folder, expected.language_folder);
        EXPECT_EQ(files.Program_Folder, Program_Folder());
    }
}

TEST_F(Program_Files_Test, AReadOnlyProgramFolderShipsItsFilesAndEachUserGetsACopy)
{
    Ship(Program_Folder(), "orvan.ini", QFile::ReadOwner);
    Ship(Program_Folder(), "Lang.ini", QFile::ReadOwner);
    ASSERT_TRUE(QFile::setPermissions(Program_Folder(), QFile::ReadOwner | QFile::ExeOwner));
    const bool writable_anyway = access(qPrintable(Program_Folder() + "/orvan.ini"), W_OK) == 0;
    if (writable_anyway) {
        QFile::setPermissions(Program_Folder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        GTEST_SKIP() << "this user may write a read-only file (root): the folder is not read-only to it";
    }
    const Program_Files files = Locate_Program_Files(Places());
    QFile::setPermissions(Program_Folder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_FALSE(files.Portable);
    EXPECT_EQ(files.First_Config, Program_Folder() + "/orvan.ini");
    EXPECT_EQ(files.Language_Folder, Program_Folder());
    EXPECT_EQ(files.Config_File(), User_Folder() + "/orvan.ini");
}

TEST_F(Program_Files_Test, TheUsersCopyIsMadeOnceAndIsTheirsToRewrite)
{
    Ship(Data_Folder(), "orvan.ini", QFile::ReadOwner);
    Ship(Data_Folder(), "Lang.ini", QFile::ReadOwner);
    const Program_Files files = Locate_Program_Files(Places());
    EXPECT_EQ(files.Config_To_Read(), Data_Folder() + "/orvan.ini");

    ASSERT_TRUE(Provide_User_Config(files));
    EXPECT_EQ(root.Read(User_Copy), root.Read(Shipped_Config));
    EXPECT_TRUE(QFileInfo(files.Config_File()).permissions() & QFile::WriteOwner);
    EXPECT_EQ(files.Config_To_Read(), files.Config_File());

    // A later start keeps what the user's copy became.
    root.Write(User_Copy, "changed by the user\r\n");
    EXPECT_TRUE(Provide_User_Config(files));
    EXPECT_EQ(root.Read(User_Copy), "changed by the user\r\n");
}

// The whole program installed: the user's copy is read and written, the
// shipped file is never touched, the demo opens at the first start only.
TEST_F(Program_Files_Test, AnInstalledProgramKeepsTheUsersSettingsAndShowsTheDemoOnce)
{
    Init_Skin_Resources();
    Ship(Data_Folder(), "orvan.ini", QFile::ReadOwner);
    Ship(Data_Folder(), "Lang.ini", QFile::ReadOwner);
    ASSERT_TRUE(QDir().mkpath(Data_Folder() + "/demo"));
    root.Write("share/orvane/demo/demo.orx", Orvane::Test::Orx_Track("Demo", Orvane::Test::Media().Wav));
    const QByteArray shipped = root.Read(Shipped_Config);
    Message_Box_Recorder boxes;
    const Program_Files files = Locate_Program_Files(Places());
    ASSERT_EQ(files.Demo_Playlist, Data_Folder() + "/demo/demo.orx");

    const auto start = [&](Program& program) {
        ASSERT_TRUE(program.Start({}));
        // The command line is handled on the unroll's last tick, which stops its timer.
        ASSERT_TRUE(QTest::qWaitFor([&] { return !program.Unroll().Timer_Display().isActive(); }, 3000));
    };
    {
        Program program(files);
        start(program);
        ASSERT_TRUE(QTest::qWaitFor([&] { return program.Model().Track_Count() == 1; }, 3000));
        program.Controls().Gestion_KeyPress('8');
        program.Controls().Quit();
    }
    EXPECT_EQ(root.Read(User_Copy).split('\n').value(27), " 4 \r");  // the shipped volume 3, one step up
    EXPECT_EQ(root.Read(Shipped_Config), shipped);

    Program second(files);
    start(second);
    EXPECT_EQ(second.Model().Track_Count(), 0);
    EXPECT_TRUE(boxes.Boxes().empty()) << boxes.Last_Text().toStdString();
}

} // namespace
} // namespace Orvane
