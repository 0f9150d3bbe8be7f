#include "player_fixture.h"

#include "player/player_layout.h"
#include "ui/picture_button.h"
#include "ui/skin_progress_track.h"

#include <QApplication>
#include <QKeyEvent>
#include <QSignalSpy>
#include <QTest>

namespace Orvane::Test {

using Player_Window = Player_Base;
using Signals = QList<QList<QVariant>>;

TEST_F(Player_Window, StartsWithoutMediaAndTakesTheTextsOfTheirNumbers)
{
    EXPECT_EQ(QStringList({view.Time_Text(), view.Lbl_Indic_Type_Temps()->text(), view.Title_Text(),
                           view.Lbl_Quitter()->text(), view.Mnu_Popup()->title(), Menu_Text(view),
                           view.Mnu_Num_Stream(1)->text(), view.Mnu_Audio_Secondaire(1)->text()}),
              QStringList({"00:00:00", "Temps écoulé", "Aucun fichier chargé", "Fermer", "Popup", "-,-",
                           "Stream audio 1", "Audio associé 1"}));
    view.Apply_Texts(Test_Texts(), false);
    EXPECT_EQ(QStringList({view.Img_Btn(12)->toolTip(), view.Lbl_Indic_Type_Temps()->text(), view.Label1()->text(),
                           view.Title_Text(), view.Lbl_Quitter()->text()}),
              QStringList({"13 English", "101 English", "104 English", "103 English", "Fermer"}));
    view.Set_Title_Text("Metropolis");
    view.Apply_Texts(Test_Texts(), true);
    EXPECT_EQ(view.Title_Text(), "Metropolis") << "the title of open media stays";
}

TEST_F(Player_Window, ReportsCharacterCodesAndMenuEntriesWithoutCheckingThem)
{
    QSignalSpy keys(&view, &Frm_Player::Key_Pressed);
    for (const auto& [key, text] : {std::pair{Qt::Key_B, "b"}, {Qt::Key_B, "B"}, {Qt::Key_Home, ""}}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(&view, &event);
    }
    EXPECT_EQ(keys, Signals({{98}, {66}, {0}}));
    QSignalSpy streams(&view, &Frm_Player::Stream_Entry_Chosen);
    view.Set_Stream_Entry_Count(2);
    view.Mnu_Num_Stream(2)->trigger();
    EXPECT_EQ(streams, Signals({{2}}));
    EXPECT_FALSE(view.Mnu_Num_Stream(2)->isChecked()) << "the checks are the choice logic's to set";
}

TEST_F(Player_Window, ReportsClicksAndSeekingInTwips)
{
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    view.Set_Cursor_Left(100);
    QSignalSpy clicks(&view, &Frm_Player::Button_Clicked);
    QSignalSpy downs(&view, &Frm_Player::Progress_Mouse_Down);
    QSignalSpy moves(&view, &Frm_Player::Progress_Mouse_Move);
    QTest::mouseClick(view.windowHandle(), Qt::LeftButton, {}, Player_Layout::Button_Place(12).center());
    QTest::mouseClick(view.windowHandle(), Qt::RightButton, {}, Player_Layout::Button_Place(1).center());
    const QPoint track = Player_Layout::Progress_Track.topLeft() + QPoint(0, 10);
    QTest::mousePress(view.windowHandle(), Qt::LeftButton, {}, track + QPoint(100, 0));  // on the knob
    QMouseEvent outside(QEvent::MouseMove, QPointF(-30, 10), view.Lbl_Avancement()->mapToGlobal(QPointF(-30, 10)),
                        Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view.Lbl_Avancement(), &outside);
    QTest::mouseRelease(view.windowHandle(), Qt::LeftButton, {}, track + QPoint(310, 0));
    EXPECT_EQ(clicks, Signals({{12}}));
    EXPECT_EQ(downs, Signals({{1500}}));
    EXPECT_EQ(moves, Signals({{-450}, {4650}}));
}

} // namespace Orvane::Test
