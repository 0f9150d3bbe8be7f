// orvan.ini, read and written, and the configuration window that edits it,
// driven through its controls with a scripted dialog provider.
#include "config/config_file.h"
#include "config/config_form.h"
#include "config/config_language_list.h"
#include "config/frm_config.h"
#include "language/text_table.h"
#include "support/temp_folder.h"
#include "ui/cdlg_ex.h"
#include "ui/dialog_scripted_provider.h"
#include "ui/message_box.h"
#include "ui/option_pair.h"
#include "ui/picture_button.h"
#include "ui/skin_label.h"
#include "ui/skin_resources.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

#include <tuple>

namespace Orvane {
namespace {

// Line numbers (from 1) of the values in the file.
enum { Version = 3, Bold_Key = 9, Bold = 10, Size = 14, Color = 16, Transparent = 18, Volume = 28 };

const QStringList Good_Lines = {
    "<< Orvane - configuration file>>", "[VERSION]", "0.5b", "[LANGUE]", "English",
    "[SOUS TITRAGE]", ">Police", "DejaVu Sans", ">Gras", "1", ">Italique", "0", ">Taille", " 12 ",
    ">Couleur", "255", ">Transparence", "1", "[PLAYLIST]", ">Repeter", "1", "[LECTEURS]", ">CD1",
    "/media/cdrom", ">CD2", "Aucun", "[VOLUME]", " 4 ", "[CONFIG]", ">Enregistrer", "0",
    "<< Do not change this file >>"};

QStringList With(int line, const QString& value)
{
    QStringList lines = Good_Lines;
    lines[line - 1] = value;
    return lines;
}

// Texts 1010 and 1009 open and close every box.
QString Box(const QString& message) { return "config error\n" + message + "\ncannot continue"; }
QString Trap(const QString& error) { return Box("read error\nerror " + error + "\ncannot continue"); }

class Config_Test : public testing::Test {
protected:
    static void SetUpTestSuite() { Init_Skin_Resources(); }
    Config_Test()
    {
        folder.Write("Lang.ini", "0.5b\r\n\r\nEnglish;Klingon\r\n\r\n0317;Pick the drive\r\n0901;bold\r\n0902;italic\r\n"
                                 "1004;first line\r\n1005;version\r\n1006;missing: \r\n1007;read error\r\n"
                                 "1008;error \r\n1009;cannot continue\r\n1010;config error\r\n9999;end\r\n");
        actions.Reload_Language = [this](const QString& language) {
            calls << "language " + language;
            return false;
        };
        actions.Rebuild_Subtitles = [this] { calls << "subtitles"; };
        actions.Write_Config = [this] { calls << "write"; };
    }
    void Write(const QStringList& lines) { folder.Write("orvan.ini", Orvane::Test::Crlf_Lines(lines)); }
    bool Read() { return Read_Config(folder.Path(), settings, texts); }
    // Reads lines afresh; true when they were accepted without a box.
    bool Accepted(const QStringList& lines)
    {
        Write(lines);
        boxes.Clear();
        texts = Text_Table();
        settings = Settings();
        return Read() && boxes.Boxes().empty();
    }

    // The window on the good file's settings.
    std::unique_ptr<Frm_Config> Open()
    {
        EXPECT_TRUE(Accepted(Good_Lines));
        return std::make_unique<Frm_Config>(settings, texts, dialog, actions, [this] { return subtitles_shown; });
    }
    static void Press_And_Release(Picture_Button* button)
    {
        QTest::mousePress(button, Qt::LeftButton);
        QTest::mouseRelease(button, Qt::LeftButton);
    }
    // The font name, size and style, and the drives of CD 1 and CD 2, as shown.
    static QStringList Shown(const Frm_Config& window)
    {
        return {window.Lbl_Nom_Police()->text(), window.Lbl_Taille()->text(), window.Lbl_Style()->text(),
                window.Lbl_CD(1)->text(), window.Lbl_CD(2)->text()};
    }

    Orvane::Test::Temp_Folder folder;
    Message_Box_Recorder boxes;
    Settings settings;
    Text_Table texts;
    Scripted_Dialog_Provider provider;
    CdlgEx dialog{provider};
    Config_Confirm_Actions actions;
    QStringList calls;  // what confirming reached beyond the settings, in order
    bool subtitles_shown = false;
};

TEST_F(Config_Test, ValueRules)
{
    // Bold takes any non-zero number, transparency only 1; the size is the leading number rounded half to even.
    const std::tuple<int, const char*, int> accepted[] = {{Bold, "2", 1}, {Transparent, "2", 0}, {Size, "12.5", 12},
        {Size, "13.5", 14}, {Size, "abc", 0}, {Size, "  7px", 7}, {2, "[version]", 12}, {1, "<<", 12}};
    for (const auto& [line, text, value] : accepted) {
        EXPECT_TRUE(Accepted(With(line, text))) << text;
        EXPECT_EQ(line == Bold ? settings.Subtitle_Font_Bold
                  : line == Transparent ? settings.Subtitle_Transparent : settings.Subtitle_Font_Size, value) << text;
    }
    EXPECT_TRUE(Accepted(Good_Lines.mid(0, 31) + QStringList{"anything", "more"}));
}

TEST_F(Config_Test, RefusalsShowTheirBox)
{
    // Lines 1 to 3 are checked before the language is loaded: its texts are still empty.
    const std::pair<QStringList, QString> refused[] = {
        {With(1, "< <"), "\n\n"}, {With(Version, "0.5B"), "\n\n"}, {With(2, "[VERSION] "), "\n[VERSION]\n"},
        {With(Bold_Key, ">Gras "), Box("missing: >Bold")}, {With(20, ">Repete"), Box("missing: >Repeter")},
        {With(Transparent, "yes"), Trap("13, Type mismatch")}, {With(Bold, ""), Trap("13, Type mismatch")},
        {With(Size, "40000"), Trap("6, Overflow")}, {With(Volume, "-32769"), Trap("6, Overflow")},
        {Good_Lines.mid(0, 20), Trap("62, Input past end of file")}};
    for (const auto& [lines, box] : refused) {
        SCOPED_TRACE(lines.join(" | ").toStdString());
        EXPECT_FALSE(Accepted(lines));
        ASSERT_EQ(boxes.Boxes().size(), 1u);
        EXPECT_EQ(boxes.Last_Text(), box);
    }

    // With the texts loaded (a reload), the first line and the version show theirs, the version before any later line.
    ASSERT_TRUE(texts.Load_Language(folder.Path(), "English"));
    Write(With(1, "< <"));
    EXPECT_FALSE(Read());
    EXPECT_EQ(boxes.Last_Text(), Box("first line"));
    Write(With(Bold_Key, ">Bold").replaceInStrings("0.5b", "0.6"));
    EXPECT_FALSE(Read());
    EXPECT_EQ(boxes.Last_Text(), Box("version"));

    // The language file reports its own refusal; the settings are read up to the language.
    QFile::remove(folder.File("Lang.ini"));
    EXPECT_FALSE(Accepted(Good_Lines));
    EXPECT_TRUE(boxes.Boxes().empty());
    EXPECT_EQ(settings.Language_Name, "English");
}

TEST_F(Config_Test, WritesTheLayoutReadsBackTheSameSettingsAndSaysOnceWhyAWriteFailed)
{
    ASSERT_TRUE(Accepted(Good_Lines));
    settings.Subtitle_Color = int32_t(65280);
    ASSERT_TRUE(Write_Config(folder.Path(), settings, 5));
    QStringList expected = With(Color, " 65280 ");
    expected[Volume - 1] = " 5 ";
    EXPECT_EQ(folder.Read("orvan.ini"), Orvane::Test::Crlf_Lines(expected));
    // The next start reads the volume written.
    ASSERT_TRUE(Read());
    EXPECT_EQ(settings.Volume_Setting, 5);

    // What a failed write leaves is the file saver's; the box is the configuration's.
    ASSERT_TRUE(QDir(folder.Path()).mkpath("blocked/orvan.ini/inside"));
    boxes.Clear();
    EXPECT_FALSE(Write_Config(folder.File("blocked"), settings, 3));
    ASSERT_EQ(boxes.Boxes().size(), 1u);
    EXPECT_EQ(boxes.Last_Text(), folder.File("blocked/orvan.ini") + "\nIs a directory");
}

TEST_F(Config_Test, OkCopiesEveryChoiceOfTheWindowKeepsALanguageThatCannotLoadAndWritesOnlyWithTheSaveOption)
{
    auto window = Open();
    EXPECT_EQ(Shown(*window), QStringList({"DejaVu Sans", "12", "bold", "/media/cdrom", "Aucun"}));
    EXPECT_EQ(window->Languages().Marked(), "English");
    EXPECT_EQ(window->Lbl_Ex_Police()->palette().color(QPalette::WindowText), QColor(255, 0, 0));
    provider.Queue_Font(Font_Choice{"DejaVu Serif", 28, false, true});
    QTest::mouseClick(window->Lbl_ST(), Qt::LeftButton);
    provider.Queue_Color(QColor(0, 0, 255));
    QTest::mouseClick(window->Lbl_Couleur_ST(), Qt::LeftButton);
    provider.Queue_Folder(QStringLiteral("/media/cdrom1/"));  // a mount point loses its last "/"
    QTest::mousePress(window->Lbl_CD2(), Qt::RightButton);  // only the left button's press opens it
    EXPECT_EQ(provider.Dialogs_Shown(), 2);
    QTest::mouseClick(window->Lbl_CD2(), Qt::LeftButton);
    EXPECT_EQ(provider.Dialogs_Shown(), 3) << "the release opens nothing more";
    QTest::mouseClick(window->Img_Option_Sub(), Qt::LeftButton);  // the mark hides itself
    QTest::mouseClick(window->Img_Option_Playlist1(), Qt::LeftButton);
    EXPECT_EQ(Shown(*window), QStringList({"DejaVu Serif", "28", "italic", "/media/cdrom", "/media/cdrom1"}));
    Press_And_Release(window->Img_Btn(0));
    EXPECT_TRUE(calls.isEmpty()) << "no language change, subtitles hidden, save off";
    const Settings& s = settings;
    EXPECT_EQ(std::tuple(s.Subtitle_Font_Name, s.Subtitle_Font_Size, s.Subtitle_Font_Bold, s.Subtitle_Font_Italic,
                         s.Subtitle_Color, s.Subtitle_Transparent, s.Playlist_Repeat, s.Save_Settings, s.CD2_Drive),
              std::tuple(QString("DejaVu Serif"), int16_t(28), false, true, Subtitle_Color_Value(int32_t(0xff0000)),
                         false, false, false, QString("/media/cdrom1")));

    // Reopened: another language that cannot be loaded, the subtitles shown, the save option on.
    subtitles_shown = true;
    window = Open();
    QTest::mouseClick(window->Languages().Name_Label(1), Qt::LeftButton);
    QTest::mouseRelease(window->Img_Option_Param1()->Box(), Qt::LeftButton);  // the box shows the mark
    Press_And_Release(window->Img_Btn(0));
    EXPECT_EQ(calls, QStringList({"language Klingon", "subtitles", "write"}));
    EXPECT_EQ(settings.Language_Name, "English") << "a file naming it would stop the next start";
    // The style shown: bold, then italic, then both, then neither; the later rule wins.
    EXPECT_EQ(QList<int>({Style_Text_Number(true, false), Style_Text_Number(false, true),
                          Style_Text_Number(true, true), Style_Text_Number(false, false)}),
              QList<int>({901, 902, 903, 904}));
}

TEST_F(Config_Test, CancelledDialogsLeaveWhatTheDialogObjectHoldsAndCancelAppliesNothing)
{
    auto window = Open();
    QSignalSpy unloaded(window.get(), &Frm_Config::Unloaded);
    provider.Queue_Font(Font_Choice{"DejaVu Serif", 28, false, true});
    QTest::mouseClick(window->Lbl_ST(), Qt::LeftButton);
    QTest::mouseClick(window->Lbl_ST(), Qt::LeftButton);   // cancelled: the settings' font it was preset with
    QTest::mouseClick(window->Lbl_CD1(), Qt::LeftButton);  // cancelled: the text the dialog was preset with
    EXPECT_EQ(Shown(*window), QStringList({"DejaVu Sans", "12", "bold", "4096", "Aucun"}));
    EXPECT_EQ(provider.Folder_Prompts().back(), "Pick the drive");
    provider.Queue_Color(QColor(0, 0, 255));
    QTest::mouseClick(window->Lbl_Couleur_ST(), Qt::LeftButton);
    QTest::mouseClick(window->Lbl_Couleur_ST(), Qt::LeftButton);  // cancelled: the swatch stays
    EXPECT_EQ(provider.Initial_Colors().back(), QColor(0, 0, 255)) << "the dialog starts from the swatch";
    EXPECT_EQ(window->Form().Color, 0xff0000);

    QTest::mouseClick(window->Img_Option_Playlist1(), Qt::LeftButton);
    Press_And_Release(window->Img_Btn(1));
    EXPECT_EQ(unloaded.count(), 1);
    EXPECT_TRUE(settings.Playlist_Repeat);
    EXPECT_EQ(settings.CD1_Drive, "/media/cdrom");
}

} // namespace
} // namespace Orvane
