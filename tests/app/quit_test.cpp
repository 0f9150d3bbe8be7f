// Quitting ends the program whichever windows are open, through "Fermer" or
// a signal, even when the settings cannot be written; a signal quits the
// real executable with its settings written.
#include "app/quit_signals.h"
#include "player/player_controls.h"
#include "playlist/frm_playlist.h"
#include "program_fixture.h"
#include "ui/skin_label.h"

#include <QApplication>
#include <QMessageBox>
#include <QProcess>
#include <QTimer>

#include <algorithm>
#include <csignal>
#include <sys/resource.h>

namespace Orvane {
namespace {

// Runs the application's event loop until something ends it; -1 when the
// deadline ended it.
int Run_Event_Loop()
{
    QTimer deadline;
    QObject::connect(&deadline, &QTimer::timeout, [] { QCoreApplication::exit(-1); });
    deadline.start(20000);
    return QCoreApplication::exec();
}

// "Fermer" with the playlist and About windows open, or a signal raised inside
// a modal box's own event loop (0 stands for the click on "Fermer").
class Quit_Test : public Orvane::Test::Program_Fixture, public testing::WithParamInterface<int> {};

TEST_P(Quit_Test, TheEventLoopEndsAndTheMediaIsReleased)
{
    Program program(folder.Path());
    Start_Unrolled(program, {Orvane::Test::Media().Wav});
    ASSERT_TRUE(QTest::qWaitFor([&] { return program.Graph().Is_Open(); }, 5000));
    const Quit_Signals quit_signals([&program] { program.Controls().Quit(); });
    program.Controls().Button_Click(Button_Playlist);
    emit program.Player_Window().Window_Double_Clicked();
    const auto about_shown = [](QWidget* window) { return window->objectName() == "Frm_About" && window->isVisible(); };
    ASSERT_TRUE(std::ranges::any_of(QApplication::topLevelWidgets(), about_shown));
    ASSERT_TRUE(program.Playlist_Window().isVisible());

    QMessageBox box(QMessageBox::Information, QStringLiteral("Orvane"), QStringLiteral("A question"));
    bool box_was_up = false;
    QTimer::singleShot(0, [&] {
        if (GetParam() == 0)
            return QTest::mouseClick(program.Player_Window().Lbl_Quitter(), Qt::LeftButton);
        QTimer::singleShot(0, [&] {
            box_was_up = QApplication::activeModalWidget() == &box;
            std::raise(GetParam());
        });
        box.exec();
    });
    EXPECT_EQ(Run_Event_Loop(), 0);
    EXPECT_FALSE(program.Graph().Is_Open());
    EXPECT_EQ(box_was_up, GetParam() != 0);
}

INSTANTIATE_TEST_SUITE_P(Windows, Quit_Test, testing::Values(0, SIGTERM, SIGINT), [](const auto& info) {
    return std::string(info.param == 0 ? "Fermer" : info.param == SIGTERM ? "SigtermInABox" : "SigintInABox");
});

// A limit on the size of the files the process writes binds the
// administrator too: the settings cannot be written at quitting.
using Quit_Settings_Test = Orvane::Test::Program_Fixture;

TEST_F(Quit_Settings_Test, AFailedWriteKeepsTheOldFileIsSaidOnceAndTheProgramStillQuits)
{
    Program program(folder.Path());
    Start_Unrolled(program, {});
    const QByteArray old = folder.Read("orvan.ini");
    program.Current_Settings().Playlist_Repeat = !program.Current_Settings().Playlist_Repeat;
    const auto file_size_signal = std::signal(SIGXFSZ, SIG_IGN);  // the write fails instead
    rlimit limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &limit), 0);
    const rlimit small{16, limit.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    QTimer::singleShot(0, [&] { program.Controls().Quit(); });
    const int ended = Run_Event_Loop();
    ::setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, file_size_signal);
    EXPECT_EQ(ended, 0);
    EXPECT_EQ(folder.Read("orvan.ini"), old);
    ASSERT_EQ(boxes.Boxes().size(), 1u);
    EXPECT_TRUE(boxes.Last_Text().startsWith(folder.File("orvan.ini"))) << Last_Box();
}

// Whether the process has its own handler for the signal (SigCgt of its
// status): until then the signal would still kill it outright.
bool Catches_Signal(qint64 pid, int number)
{
    QFile status(QStringLiteral("/proc/%1/status").arg(pid));
    if (!status.open(QIODevice::ReadOnly))
        return false;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("SigCgt:"))
            return (line.mid(7).trimmed().toULongLong(nullptr, 16) >> (number - 1)) & 1;
    return false;
}

class Quit_Signal_Process_Test : public testing::TestWithParam<int> {};

TEST_P(Quit_Signal_Process_Test, TheProgramEndsNormallyWithItsSettingsWritten)
{
    Orvane::Test::Temp_Folder folder;
    Orvane::Test::Copy_Shipped_Files(folder);
    ASSERT_TRUE(QFile::copy(QStringLiteral(ORVANE_BINARY_DIR "/orvane"), folder.File("orvane")));
    // The trailer line is never read: the one written at quitting shows.
    const QByteArray shipped = folder.Read("orvan.ini");
    folder.Write("orvan.ini", QByteArray(shipped).replace("<< Do not change this file >>", "<< old >>"));

    QProcess process;  // on the display and the audio output the tests are given
    process.start(folder.File("orvane"));
    ASSERT_TRUE(process.waitForStarted(10000));
    ASSERT_TRUE(QTest::qWaitFor([&] { return Catches_Signal(process.processId(), GetParam()); }, 20000));
    ASSERT_EQ(::kill(pid_t(process.processId()), GetParam()), 0);

    ASSERT_TRUE(process.waitForFinished(20000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0);
    EXPECT_EQ(folder.Read("orvan.ini"), shipped);
}

INSTANTIATE_TEST_SUITE_P(Signals, Quit_Signal_Process_Test, testing::Values(SIGTERM, SIGINT),
                         [](const auto& info) { return std::string(info.param == SIGTERM ? "Sigterm" : "Sigint"); });

} // namespace
} // namespace Orvane
