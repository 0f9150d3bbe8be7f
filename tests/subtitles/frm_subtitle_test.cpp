// The subtitle window: the letters' outline it is cut to, the opaque label,
// the colour it reads from the settings, and where it sits.
#include "config/settings.h"
#include "language/text_table.h"
#include "subtitles/frm_subtitle.h"
#include "subtitles/subtitle_shape.h"
#include "subtitles/subtitle_table.h"
#include "support/temp_folder.h"
#include "ui/message_box.h"

#include <gtest/gtest.h>

#include <QFontMetrics>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>

namespace Orvane {
namespace {

namespace Shape = Subtitle_Shape;

Settings Subtitle_Settings(int size = 24)
{
    Settings settings;
    settings.Subtitle_Font_Name = QStringLiteral("DejaVu Sans");
    settings.Subtitle_Font_Size = int16_t(size);
    settings.Subtitle_Color = QStringLiteral("16777215");
    settings.Subtitle_Transparent = true;
    return settings;
}

QRegion Region_Of(const QString& line1, const QString& line2, int size = 24, int edge = 0)
{
    const QFont font = Shape::Subtitle_Font(Subtitle_Settings(), size);
    return Shape::Build_Text_Region(Shape::Text_Outline(font, line1, 100, line2, 120), edge);
}

TEST(Subtitle_Text_Region, EachLineStaysInItsBoxAndGrowsWithTheSize)
{
    const QRegion one = Region_Of(QStringLiteral("Bonjour"), QString());
    const QFont font = Shape::Subtitle_Font(Subtitle_Settings(), 24);
    const QRect line1_box(100, 0, QFontMetrics(font).horizontalAdvance("Bonjour"), QFontMetrics(font).height());
    ASSERT_FALSE(one.isEmpty());
    EXPECT_TRUE(line1_box.contains(one.boundingRect()));
    const QRect below_line1(0, Shape::Line2_Offset, 4000, 400);
    EXPECT_TRUE(one.intersected(below_line1).isEmpty());

    // The second line is drawn forty pixels below, from its own left.
    const QRegion second = Region_Of(QStringLiteral("Bonjour"), QStringLiteral("le monde")).intersected(below_line1);
    ASSERT_FALSE(second.isEmpty());
    EXPECT_GE(second.boundingRect().left(), 120);

    const QRect small = Region_Of(QStringLiteral("Bonjour"), QString(), 12).boundingRect();
    const QRect large = Region_Of(QStringLiteral("Bonjour"), QString(), 36).boundingRect();
    EXPECT_GT(large.width(), small.width());
    EXPECT_GT(large.height(), small.height());

    EXPECT_TRUE(Region_Of(QString(), QString()).isEmpty());
    EXPECT_TRUE(Region_Of(QString(), QString(), 24, Shape::Edge_Width).isEmpty());
}

TEST(Subtitle_Text_Region, TheEdgeGrowsTheLettersByItsWidthOnly)
{
    const QRegion letters = Region_Of(QStringLiteral("Salut"), QStringLiteral("toi"));
    const QRegion edged = Region_Of(QStringLiteral("Salut"), QStringLiteral("toi"), 24, Shape::Edge_Width);
    EXPECT_TRUE(letters.subtracted(edged).isEmpty()) << "the letters stay inside";
    EXPECT_FALSE(edged.subtracted(letters).isEmpty()) << "the edge adds pixels";
    const int reach = Shape::Edge_Width + 1;
    EXPECT_TRUE(letters.boundingRect().adjusted(-reach, -reach, reach, reach).contains(edged.boundingRect()));
}

TEST(Subtitle_Label, TheLineFeedStaysWhenTheSecondLineIsEmpty)
{
    EXPECT_EQ(Shape::Label_Text(QStringLiteral("Seul"), QString()), QStringLiteral("Seul\n"));
}

// The window itself, on the screen of the offscreen platform.
class Frm_Subtitle_Test : public testing::Test {
protected:
    Frm_Subtitle_Test()
    {
        folder_.Write("Lang.ini", "0.5b\r\n\r\nEnglish\r\n\r\n1006;Wrong line: \r\n1008;Error \r\n"
                                  "1010;Error in orvan.ini\r\n9999;End\r\n");
        EXPECT_TRUE(texts_.Load_Language(folder_.Path(), QStringLiteral("English")));
        table_.Subtitle_Lines.push_back({QStringLiteral("00:00:01"), QStringLiteral("Bonjour"), QString(), 200, 0, 0});
        table_.Subtitle_Lines.push_back({QStringLiteral("00:00:03"), QStringLiteral("Petit"), QStringLiteral("texte"),
                                         300, 310, 10});
    }

    Orvane::Test::Temp_Folder folder_;
    Text_Table texts_;
    Settings settings_ = Subtitle_Settings();
    Subtitle_Table table_;
    Message_Box_Recorder boxes_;
};

TEST_F(Frm_Subtitle_Test, LoadedItSpansTheScreensBottomEdgeAndShowsNothing)
{
    Frm_Subtitle window(settings_, texts_, table_);
    window.Show();
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_EQ(window.geometry().bottom(), area.bottom());
    EXPECT_EQ(window.geometry().left(), area.left());
    EXPECT_EQ(window.width(), area.width());
    EXPECT_TRUE(window.Shape().isEmpty());
    EXPECT_TRUE(window.mask().intersected(window.rect()).isEmpty()) << "nothing visible, no click caught";
}

TEST_F(Frm_Subtitle_Test, TransparentModeCutsTheWindowToTheLettersAndClears)
{
    Frm_Subtitle window(settings_, texts_, table_);
    window.Show();
    window.Show_Subtitle(QStringLiteral("Bonjour"), QString(), 1);
    ASSERT_FALSE(window.Shape().isEmpty());
    EXPECT_EQ(window.mask(), window.Shape());
    EXPECT_GE(window.Shape().boundingRect().left(), 200 - Shape::Edge_Width) << "at the entry's left edge";
    window.Show_Subtitle(QString(), QString(), 1);
    EXPECT_TRUE(window.mask().intersected(window.rect()).isEmpty());
}

TEST_F(Frm_Subtitle_Test, OpaqueModeShowsBothLinesAtTheEntrysSize)
{
    settings_.Subtitle_Transparent = false;
    Frm_Subtitle window(settings_, texts_, table_);
    window.Show();
    window.Show_Subtitle(QStringLiteral("Petit"), QStringLiteral("texte"), 2);
    EXPECT_EQ(window.Lbl_Subtitle()->text(), QStringLiteral("Petit\ntexte"));
    EXPECT_EQ(window.Lbl_Subtitle()->font().pointSize(), 10);
    EXPECT_TRUE(window.Lbl_Subtitle()->isVisibleTo(&window));
    window.Show_Subtitle(QStringLiteral("Bonjour"), QString(), 1);
    EXPECT_EQ(window.Lbl_Subtitle()->font().pointSize(), 24) << "entry 1 keeps the settings' size";
}

TEST_F(Frm_Subtitle_Test, TheColourIsAWindowsRgbValue)
{
    const std::vector<std::pair<Subtitle_Color_Value, QColor>> cases = {
        {QStringLiteral("255"), QColor(255, 0, 0)},
        {QStringLiteral("16711680"), QColor(0, 0, 255)},
        {QStringLiteral(" 65280 "), QColor(0, 255, 0)},
        {int32_t(0x00336699), QColor(0x99, 0x66, 0x33)},
    };
    for (const auto& [setting, expected] : cases) {
        settings_.Subtitle_Color = setting;
        Frm_Subtitle window(settings_, texts_, table_);
        window.Show();
        EXPECT_EQ(window.Text_Color(), expected) << expected.name().toStdString();
    }
    EXPECT_TRUE(boxes_.Boxes().empty());
}

TEST_F(Frm_Subtitle_Test, AColourThatIsNoNumberIsReportedOnceAndWhiteIsUsed)
{
    settings_.Subtitle_Color = QStringLiteral("blanc");
    Frm_Subtitle window(settings_, texts_, table_);
    window.Show();
    window.Unload();
    window.Show();
    EXPECT_EQ(window.Text_Color(), QColor(Qt::white));
    ASSERT_EQ(boxes_.Boxes().size(), 1u);
    EXPECT_EQ(boxes_.Last_Text(), QStringLiteral("Error in orvan.ini\nWrong line: >Couleur\nError 13, Type mismatch"));
}

} // namespace
} // namespace Orvane
