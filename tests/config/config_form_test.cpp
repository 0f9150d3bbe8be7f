// The configuration window: its form logic without a window, and the window
// itself driven through its controls and a scripted dialog provider.
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

#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

// Failed comparisons of texts show the texts.
inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }

namespace Orvane {
namespace {

Settings Some_Settings()
{
    Settings settings;
    settings.Language_Name = QStringLiteral("English");
    settings.Subtitle_Font_Name = QStringLiteral("DejaVu Sans");
    settings.Subtitle_Font_Size = 20;
    settings.Subtitle_Font_Bold = true;
    settings.Subtitle_Color = QStringLiteral("255");
    settings.CD1_Drive = QStringLiteral("/media/cdrom");
    return settings;
}

TEST(Config_Form, TheStyleTextFollowsTheLaterRule)
{
    EXPECT_EQ(Style_Text_Number(true, false), 901);
    EXPECT_EQ(Style_Text_Number(false, true), 902);
    EXPECT_EQ(Style_Text_Number(true, true), 903);
    EXPECT_EQ(Style_Text_Number(false, false), 904);
}

// What confirming did, in order.
struct Confirm_Journal {
    QStringList calls;
    bool language_loads = true;
    Config_Confirm_Actions Actions()
    {
        return {[this](const QString& language) {
                    calls << "language " + language;
                    return language_loads;
                },
                [this] { calls << "subtitles"; }, [this] { calls << "write"; }};
    }
};

TEST(Config_Form, ConfirmingCopiesEveryFieldAndWritesOnlyWithTheSaveOption)
{
    Settings settings = Some_Settings();
    Config_Form form = Load_Config_Form(settings);
    form.Font_Name = "DejaVu Serif";
    form.Font_Size = 30;
    form.Italic = true;
    form.Color = 0xff0000;
    form.Transparent = form.Repeat = true;
    form.CD2 = "/media/cdrom1";
    Confirm_Journal journal;
    Confirm_Config_Form(form, settings, false, journal.Actions());
    EXPECT_TRUE(journal.calls.isEmpty()) << "no language change, subtitles hidden, save off";
    EXPECT_EQ(std::get<int32_t>(settings.Subtitle_Color), 0xff0000);
    EXPECT_EQ(settings.Subtitle_Font_Name, "DejaVu Serif");
    EXPECT_EQ(settings.Subtitle_Font_Size, 30);
    EXPECT_TRUE(settings.Subtitle_Font_Bold);
    EXPECT_TRUE(settings.Subtitle_Font_Italic);
    EXPECT_TRUE(settings.Subtitle_Transparent);
    EXPECT_TRUE(settings.Playlist_Repeat);
    EXPECT_FALSE(settings.Save_Settings);
    EXPECT_EQ(settings.CD2_Drive, "/media/cdrom1");

    form.Save = true;
    Choose_Language(form, "Francais");
    Confirm_Config_Form(form, settings, true, journal.Actions());
    EXPECT_EQ(journal.calls, QStringList({"language Francais", "subtitles", "write"}));
    EXPECT_EQ(settings.Language_Name, "Francais");
}

TEST(Config_Form, ALanguageThatCannotBeLoadedKeepsTheOldOne)
{
    Settings settings = Some_Settings();
    Config_Form form = Load_Config_Form(settings);
    Choose_Language(form, "Klingon");
    Confirm_Journal journal;
    journal.language_loads = false;
    Confirm_Config_Form(form, settings, false, journal.Actions());
    EXPECT_EQ(settings.Language_Name, "English");
}

TEST(Config_Form, DialogsFillTheFormAndACancelLeavesWhatTheDialogObjectHolds)
{
    Scripted_Dialog_Provider provider;
    CdlgEx dialog(provider);
    Orvane::Test::Temp_Folder folder;
    folder.Write("Lang.ini", "0.5b\r\n\r\nEnglish\r\n\r\n0317;Pick the drive\r\n9999;\r\n");
    Text_Table texts;
    ASSERT_TRUE(texts.Load_Language(folder.Path(), "English"));
    const Settings settings = Some_Settings();
    Config_Form form = Load_Config_Form(settings);

    provider.Queue_Font(Font_Choice{"DejaVu Serif", 28, false, true});
    Choose_Font(dialog, nullptr, settings, form);
    EXPECT_EQ(std::tie(form.Font_Name, form.Font_Size, form.Bold, form.Italic),
              std::make_tuple(QString("DejaVu Serif"), 28, false, true));
    Choose_Font(dialog, nullptr, settings, form);  // cancelled: the settings' font it was preset with
    EXPECT_EQ(std::tie(form.Font_Name, form.Font_Size, form.Bold), std::make_tuple(QString("DejaVu Sans"), 20, true));

    provider.Queue_Color(QColor(0, 0, 255));
    Choose_Color(dialog, nullptr, form);
    EXPECT_EQ(form.Color, 0xff0000);
    Choose_Color(dialog, nullptr, form);
    EXPECT_EQ(form.Color, 0xff0000) << "a cancel keeps the swatch";
    EXPECT_EQ(provider.Initial_Colors().back(), QColor(0, 0, 255)) << "the dialog starts from the swatch";

    provider.Queue_Folder(QStringLiteral("/media/cdrom1/"));
    Choose_Drive(dialog, nullptr, texts, 2, form);
    EXPECT_EQ(form.CD2, "/media/cdrom1");
    EXPECT_EQ(provider.Folder_Prompts().back(), "Pick the drive");
    Choose_Drive(dialog, nullptr, texts, 1, form);
    EXPECT_EQ(form.CD1, "4096") << "a cancel reads back the text the dialog was preset with";
}

// The window on the offscreen platform.
class Frm_Config_Test : public testing::Test {
protected:
    static void SetUpTestSuite() { Init_Skin_Resources(); }
    Frm_Config_Test()
    {
        QByteArray file = "0.5b\r\n\r\nFrancais;English\r\n\r\n";
        for (int n : Frm_Config::Caption_Numbers())
            file += QStringLiteral("%1;%2 fr;%2 en\r\n").arg(n, 4, 10, QLatin1Char('0')).arg(n).toUtf8();
        for (int n : {901, 902, 903, 904})
            file += QStringLiteral("%1;style %2;style %2\r\n").arg(n, 4, 10, QLatin1Char('0')).arg(n).toUtf8();
        folder_.Write("Lang.ini", file + "9999;;\r\n");
        EXPECT_TRUE(texts_.Load_Language(folder_.Path(), "English"));
    }

    std::unique_ptr<Frm_Config> Open()
    {
        Config_Confirm_Actions actions;
        actions.Write_Config = [this] { ++writes_; };
        return std::make_unique<Frm_Config>(settings_, texts_, dialog_, actions, [] { return false; });
    }

    static void Release(Picture_Button* button)
    {
        QTest::mousePress(button, Qt::LeftButton);
        QTest::mouseRelease(button, Qt::LeftButton);
    }

    Message_Box_Recorder boxes_;
    Orvane::Test::Temp_Folder folder_;
    Text_Table texts_;
    Settings settings_ = Some_Settings();
    Scripted_Dialog_Provider provider_;
    CdlgEx dialog_{provider_};
    int writes_ = 0;
};

TEST_F(Frm_Config_Test, LoadingShowsTheSettings)
{
    auto window = Open();
    EXPECT_EQ(window->Lbl_Nom_Police()->text(), "DejaVu Sans");
    EXPECT_EQ(window->Lbl_Taille()->text(), "20");
    EXPECT_EQ(window->Lbl_Style()->text(), "style 901");
    EXPECT_EQ(window->Lbl_CD(1)->text(), "/media/cdrom");
    EXPECT_FALSE(window->Img_Option_Sub()->Is_On());
    EXPECT_EQ(window->Languages().Marked(), "English");
    EXPECT_EQ(window->Lbl_Ex_Police()->palette().color(QPalette::WindowText), QColor(255, 0, 0));
}

TEST_F(Frm_Config_Test, OkAppliesTheControlsAndCancelNothing)
{
    auto window = Open();
    QSignalSpy unloaded(window.get(), &Frm_Config::Unloaded);
    QTest::mouseRelease(window->Img_Option_Sub()->Box(), Qt::LeftButton);  // the box shows the mark...
    QTest::mouseClick(window->Img_Option_Sub(), Qt::LeftButton);            // ...the mark hides it
    QTest::mouseClick(window->Img_Option_Playlist1(), Qt::LeftButton);
    window->Languages().Name_Label(0)->Clicked();
    Release(window->Img_Btn(1));
    EXPECT_FALSE(settings_.Playlist_Repeat) << "cancel applies nothing";
    EXPECT_EQ(unloaded.count(), 1);

    window = Open();
    QTest::mouseClick(window->Img_Option_Playlist1(), Qt::LeftButton);
    QTest::mouseClick(window->Img_Option_Param1(), Qt::LeftButton);
    Release(window->Img_Btn(0));
    EXPECT_TRUE(settings_.Playlist_Repeat);
    EXPECT_FALSE(settings_.Subtitle_Transparent);
    EXPECT_EQ(writes_, 1) << "the save option is on";
}

TEST_F(Frm_Config_Test, OnlyALeftPressOpensTheSecondDrivesChooser)
{
    auto window = Open();
    provider_.Queue_Folder(QStringLiteral("/media/dvd/"));
    QTest::mousePress(window->Lbl_CD2(), Qt::RightButton);
    EXPECT_EQ(provider_.Dialogs_Shown(), 0);
    QTest::mousePress(window->Lbl_CD2(), Qt::LeftButton);
    EXPECT_EQ(window->Lbl_CD(2)->text(), "/media/dvd");
    QTest::mouseRelease(window->Lbl_CD2(), Qt::LeftButton);
    EXPECT_EQ(provider_.Dialogs_Shown(), 1) << "the release opens nothing more";
}

} // namespace
} // namespace Orvane
