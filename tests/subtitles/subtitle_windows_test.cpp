// The windows of the picture: the subtitle window (the letters' outline it is
// cut to, the opaque label, its colour and place) and the display window.
#include "config/settings.h"
#include "language/text_table.h"
#include "subtitles/frm_display.h"
#include "subtitles/frm_subtitle.h"
#include "subtitles/subtitle_shape.h"
#include "subtitles/subtitle_table.h"
#include "support/temp_folder.h"
#include "ui/message_box.h"
#include "ui/skin_resources.h"
#include "ui/video_widget.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>

namespace Orvane {
namespace {

namespace Shape = Subtitle_Shape;

// The window itself, on the screen of the offscreen platform.
class Frm_Subtitle_Test : public testing::Test {
protected:
    Frm_Subtitle_Test()
    {
        settings_.Subtitle_Font_Name = QStringLiteral("DejaVu Sans");
        settings_.Subtitle_Font_Size = 24;
        settings_.Subtitle_Color = QStringLiteral("16777215");
        settings_.Subtitle_Transparent = true;
        folder_.Write("Lang.ini", "0.5b\r\n\r\nEnglish\r\n\r\n1006;Wrong line: \r\n1008;Error \r\n"
                                  "1010;Error in orvan.ini\r\n9999;End\r\n");
        EXPECT_TRUE(texts_.Load_Language(folder_.Path(), QStringLiteral("English")));
        // Entry 1 at the settings' size, entry 2 shrunk to 10 points, each line from its own left.
        table_.Subtitle_Lines.insert(table_.Subtitle_Lines.end(), {{"00:00:01", "Bonjour", "", 200, 0, 0},
                                                                   {"00:00:03", "Petit", "texte", 300, 310, 10}});
    }

    Orvane::Test::Temp_Folder folder_;
    Text_Table texts_;
    Settings settings_;
    Subtitle_Table table_;
    Message_Box_Recorder boxes_;
};

TEST_F(Frm_Subtitle_Test, ItSpansTheScreensBottomEdgeAndShowsTheLinesOfTheEntryCutOutOrOnItsLabel)
{
    Frm_Subtitle window(settings_, texts_, table_);
    window.Show();
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_EQ(window.geometry(), QRect(area.left(), area.bottom() + 1 - window.height(), area.width(), window.height()));
    EXPECT_TRUE(window.mask().intersected(window.rect()).isEmpty()) << "nothing visible, no click caught";

    // Entry 2's lines from their own left edges, the second forty pixels
    // below the first, at the entry's size.
    window.Show_Subtitle(QStringLiteral("Petit"), QStringLiteral("texte"), 2);
    EXPECT_EQ(window.mask(), window.Shape());
    const QFont font = Shape::Subtitle_Font(settings_, 10);
    const QRegion letters = Shape::Build_Text_Region(Shape::Text_Outline(font, "Petit", 300, "texte", 310));
    const QRect line1 = letters.intersected(QRect(0, 0, 4000, Shape::Line2_Offset)).boundingRect();
    EXPECT_TRUE(QRect(300, 0, QFontMetrics(font).horizontalAdvance("Petit"), QFontMetrics(font).height()).contains(line1));
    EXPECT_GE(letters.intersected(QRect(0, Shape::Line2_Offset, 4000, 400)).boundingRect().left(), 310);
    EXPECT_TRUE(letters.subtracted(window.Shape()).isEmpty()) << "every letter shows";
    EXPECT_FALSE(window.Shape().subtracted(letters).isEmpty()) << "with an edge around";
    const int reach = Shape::Edge_Width + 1;
    EXPECT_TRUE(letters.boundingRect().adjusted(-reach, -reach, reach, reach).contains(window.Shape().boundingRect()));
    window.Show_Subtitle(QString(), QString(), 1);
    EXPECT_TRUE(window.mask().intersected(window.rect()).isEmpty());

    // Opaque, the label shows both lines, the line feed even without a second.
    settings_.Subtitle_Transparent = false;
    Frm_Subtitle opaque(settings_, texts_, table_);
    opaque.Show();
    opaque.Show_Subtitle(QStringLiteral("Petit"), QStringLiteral("texte"), 2);
    EXPECT_EQ(opaque.Lbl_Subtitle()->text(), QStringLiteral("Petit\ntexte"));
    EXPECT_EQ(opaque.Lbl_Subtitle()->font().pointSize(), 10);
    EXPECT_TRUE(opaque.Lbl_Subtitle()->isVisibleTo(&opaque));
    opaque.Show_Subtitle(QStringLiteral("Bonjour"), QString(), 1);
    EXPECT_EQ(opaque.Lbl_Subtitle()->text(), QStringLiteral("Bonjour\n"));
    EXPECT_EQ(opaque.Lbl_Subtitle()->font().pointSize(), 24) << "entry 1 keeps the settings' size";
}

// A Windows RGB value; one that is no number is reported once, however
// often the window loads, and white is used.
TEST_F(Frm_Subtitle_Test, TheColourIsAWindowsRgbValue)
{
    const std::pair<Subtitle_Color_Value, QColor> cases[] = {
        {QStringLiteral("255"), QColor(255, 0, 0)}, {QStringLiteral("16711680"), QColor(0, 0, 255)},
        {QStringLiteral(" 65280 "), QColor(0, 255, 0)}, {int32_t(0x00336699), QColor(0x99, 0x66, 0x33)},
        {QStringLiteral("blanc"), QColor(Qt::white)}};
    for (const auto& [setting, expected] : cases) {
        settings_.Subtitle_Color = setting;
        Frm_Subtitle window(settings_, texts_, table_);
        window.Show();
        window.Unload();
        window.Show();
        EXPECT_EQ(window.Text_Color(), expected) << expected.name().toStdString();
    }
    ASSERT_EQ(boxes_.Boxes().size(), 1u);
    EXPECT_EQ(boxes_.Last_Text(), QStringLiteral("Error in orvan.ini\nWrong line: >Couleur\nError 13, Type mismatch"));
}

// The display window's own part; the layout arithmetic is tested with the
// layout routines, the keys' codes with the hidden key window.
TEST(Frm_Display, TopBarAroundTheVideoAndKeysToThePlayersDispatcher)
{
    Init_Skin_Resources();
    Frm_display window;
    window.show();
    Show_Audio_Layout(window);
    EXPECT_TRUE(window.Splash_Visible());
    Show_Video_Layout(window, QSize(320, 240));
    EXPECT_FALSE(window.Splash_Visible());
    EXPECT_EQ(window.Video()->geometry(), QRect(0, 20, 320, 240));
    EXPECT_TRUE(window.Video()->isVisible());
    // The middle of the top bar stretched between its two ends, 40 x 20 each.
    QWidget* const middle = window.findChild<QWidget*>(QStringLiteral("Img_Haut_Centre"));
    EXPECT_EQ(middle->geometry(), QRect(40, 0, 240, 20));
    window.Set_Top_Pictures_Visible(false);
    EXPECT_FALSE(middle->isVisible());

    std::vector<int> codes;
    window.Set_Key_Handler([&codes](int code) { codes.push_back(code); });
    QKeyEvent key(QEvent::KeyPress, Qt::Key_P, Qt::ShiftModifier, "P");
    QApplication::sendEvent(&window, &key);
    EXPECT_EQ(codes, std::vector<int>{'P'});
}

} // namespace
} // namespace Orvane
