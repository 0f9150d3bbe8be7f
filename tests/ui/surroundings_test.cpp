// The windows as the window system itself shows them: the hidden key window
// on an X server, and the folder the file dialogs open in.
#include "support/temp_folder.h"
#include "ui/cdlg_ex.h"
#include "ui/dialog_qt_provider.h"
#include "ui/frm_rien.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDeadlineTimer>
#include <QDialog>
#include <QFileDialog>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include <vector>

namespace Orvane {
namespace {

// On a real X server: the screen under the window shows what lies beneath it.
TEST(Frm_Rien, LeavesTheScreenUnderItUntouchedOnX11)
{
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        GTEST_SKIP() << "needs an X server (run under xvfb-run with QT_QPA_PLATFORM=xcb)";
    const QRect under(100, 100, 60, 60);
    QWidget beneath(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
    beneath.setAutoFillBackground(true);
    beneath.setPalette(QPalette(QColor(200, 30, 40)));
    beneath.setGeometry(under);
    beneath.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&beneath));

    std::vector<int> received;
    Frm_Rien rien([&received](int code) { received.push_back(code); });
    rien.move(under.topLeft() + QPoint(20, 20));
    rien.show();
    rien.raise();
    rien.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&rien] { return QApplication::focusWidget() == &rien; }, 5000));
    QTest::keyClick(rien.windowHandle(), Qt::Key_B);
    EXPECT_EQ(received, std::vector<int>{'b'});

    const QImage shot = QGuiApplication::primaryScreen()->grabWindow(0, under.x(), under.y(), under.width(),
                                                                       under.height()).toImage();
    ASSERT_EQ(shot.size(), under.size());
    int other = 0;
    for (int y = 0; y < shot.height(); ++y)
        for (int x = 0; x < shot.width(); ++x)
            other += QColor(shot.pixel(x, y)) != QColor(200, 30, 40) ? 1 : 0;
    EXPECT_EQ(other, 0);
}

// Cancels the next file dialog that opens, noting the folder it shows. Past
// the deadline it closes whatever modal window is up, so the test fails
// rather than waits.
void Cancel_Next_File_Dialog(QString* shown_folder)
{
    auto* poll = new QTimer;
    const QDeadlineTimer deadline(10000);
    QObject::connect(poll, &QTimer::timeout, poll, [poll, shown_folder, deadline] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (dialog)
            *shown_folder = dialog->directory().absolutePath();
        else if (!deadline.hasExpired())
            return;
        poll->stop();
        poll->deleteLater();
        if (auto* modal = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
            modal->reject();
    });
    poll->start(20);
}

// The dialogs open where the process stands, which the last chosen file
// moved (the choice itself is covered with the scripted dialogs).
TEST(File_Dialogs, OpenInTheCurrentDirectory)
{
    const QString saved = QDir::currentPath();
    Orvane::Test::Temp_Folder folder;
    ASSERT_TRUE(QDir(folder.Path()).mkpath("start") && QDir(folder.Path()).mkpath("films"));
    const QString start = QDir(folder.File("start")).canonicalPath();
    const QString films = QDir(folder.File("films")).canonicalPath();
    Qt_Dialog_Provider provider;
    CdlgEx dialog(provider);
    dialog.Set_Filter("Films|*.avi");

    QString shown;
    QDir::setCurrent(start);
    Cancel_Next_File_Dialog(&shown);
    dialog.ShowOpen();
    EXPECT_EQ(shown, start);
    QDir::setCurrent(films);
    Cancel_Next_File_Dialog(&shown);
    dialog.ShowSave();
    EXPECT_EQ(shown, films);
    EXPECT_TRUE(dialog.CancelError());
    QDir::setCurrent(saved);
}

} // namespace
} // namespace Orvane
