// Quitting ends the program whichever windows are open, through "Fermer" or
// a signal, and a signal quits the real executable with its settings written.
#include "app/quit_signals.h"
#include "player/player_controls.h"
#include "playlist/frm_playlist.h"
#include "program_fixture.h"
#include "ui/skin_label.h"

#include <QApplication>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QMessageBox>
#include <QProcess>
#include <QTimer>

#include <csignal>

namespace Orvane {
namespace {

using namespace std::chrono_literals;

// Runs the application's event loop until something ends it; -1 when the
// deadline ended it.
int Run_Event_Loop(std::chrono::milliseconds deadline)
{
    QTimer guard;
    guard.setSingleShot(true);
    QObject::connect(&guard, &QTimer::timeout, [] { QCoreApplication::exit(-1); });
    guard.start(deadline);
    return QCoreApplication::exec();
}

enum class Open_Window { Playlist, About, Modal_Box };
enum class Quit_Route { Fermer, Sigterm, Sigint };

struct Quit_Case {
    const char* name;
    Open_Window window;
    Quit_Route route;
};

void PrintTo(const Quit_Case& quit_case, std::ostream* out) { *out << quit_case.name; }

class Quit_Test : public Orvane::Test::Program_Fixture, public testing::WithParamInterface<Quit_Case> {};

bool Window_Shown(const char* name)
{
    for (const QWidget* window : QApplication::topLevelWidgets())
        if (window->objectName() == QLatin1String(name) && window->isVisible())
            return true;
    return false;
}

void Send_Quit(Program& program, Quit_Route route)
{
    switch (route) {
    case Quit_Route::Fermer:
        QTest::mouseClick(program.Player_Window().Lbl_Quitter(), Qt::LeftButton);
        return;
    case Quit_Route::Sigterm:
        std::raise(SIGTERM);
        return;
    case Quit_Route::Sigint:
        std::raise(SIGINT);
        return;
    }
}

TEST_P(Quit_Test, TheEventLoopEndsAndTheMediaIsReleased)
{
    const Quit_Case& quit_case = GetParam();
    Program program(folder.Path());
    ASSERT_TRUE(program.Start({}));
    const Quit_Signals quit_signals([&program] { program.Controls().Quit(); });
    ASSERT_TRUE(quit_signals.Installed());

    QMessageBox box(QMessageBox::Information, QStringLiteral("Orvane"), QStringLiteral("A question"),
                    QMessageBox::Ok | QMessageBox::Cancel);
    bool box_was_up = false;
    QTimer::singleShot(0, [&] {
        switch (quit_case.window) {
        case Open_Window::Playlist:
            program.Controls().Button_Click(Button_Playlist);
            EXPECT_TRUE(program.Playlist_Window().isVisible());
            break;
        case Open_Window::About:
            emit program.Player_Window().Window_Double_Clicked();
            EXPECT_TRUE(Window_Shown("Frm_About"));
            break;
        case Open_Window::Modal_Box:
            // The quit comes from inside the box's own event loop.
            QTimer::singleShot(0, [&] {
                box_was_up = QApplication::activeModalWidget() == &box;
                Send_Quit(program, quit_case.route);
            });
            box.exec();
            return;
        }
        Send_Quit(program, quit_case.route);
    });
    EXPECT_EQ(Run_Event_Loop(20s), 0);
    EXPECT_FALSE(program.Graph().Is_Open());
    EXPECT_EQ(box_was_up, quit_case.window == Open_Window::Modal_Box);
}

INSTANTIATE_TEST_SUITE_P(
    Windows, Quit_Test,
    testing::Values(Quit_Case{"PlaylistWindowFermer", Open_Window::Playlist, Quit_Route::Fermer},
                    Quit_Case{"AboutWindowFermer", Open_Window::About, Quit_Route::Fermer},
                    Quit_Case{"PlaylistWindowSigterm", Open_Window::Playlist, Quit_Route::Sigterm},
                    Quit_Case{"ModalBoxSigterm", Open_Window::Modal_Box, Quit_Route::Sigterm},
                    Quit_Case{"ModalBoxSigint", Open_Window::Modal_Box, Quit_Route::Sigint}),
    [](const testing::TestParamInfo<Quit_Case>& info) { return std::string(info.param.name); });

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
    const QString program = folder.File("orvane");
    ASSERT_TRUE(QFile::copy(QStringLiteral(ORVANE_BINARY_DIR "/orvane"), program));
    // An old date: the write at quitting shows as a new one.
    const QDateTime long_ago = QDateTime::currentDateTime().addYears(-10);
    {
        QFile settings(folder.File("orvan.ini"));
        ASSERT_TRUE(settings.open(QIODevice::ReadWrite));
        ASSERT_TRUE(settings.setFileTime(long_ago, QFileDevice::FileModificationTime));
    }

    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("ORVANE_AUDIO_SINK"), QStringLiteral("fakesink sync=true"));
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder.Path());
    process.start(program);
    ASSERT_TRUE(process.waitForStarted(10000));
    const int number = GetParam();
    ASSERT_TRUE(QTest::qWaitFor([&] { return Catches_Signal(process.processId(), number); }, 20000));
    ASSERT_EQ(::kill(pid_t(process.processId()), number), 0);

    ASSERT_TRUE(process.waitForFinished(20000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0);
    EXPECT_GT(QFileInfo(folder.File("orvan.ini")).lastModified(), long_ago.addDays(1));
}

INSTANTIATE_TEST_SUITE_P(Signals, Quit_Signal_Process_Test, testing::Values(SIGTERM, SIGINT),
                         [](const testing::TestParamInfo<int>& info) {
                             return std::string(info.param == SIGTERM ? "Sigterm" : "Sigint");
                         });

} // namespace
} // namespace Orvane
