// The playlist window on the offscreen platform: its list stays the model's
// list through adds, removals and loads; its buttons go through the shared
// dialog object; captions, keys and double clicks reach where they belong.
#include "playlist/frm_playlist.h"

#include "base/text_file.h"
#include "config/settings.h"
#include "playlist/playlist_panel_audio.h"
#include "playlist/playlist_panel_subtitles.h"
#include "playlist/playlist_panel_tracks.h"
#include "playlist/playlist_window_batch.h"
#include "playlist/playlist_window_progress.h"
#include "playlist_test_support.h"
#include "support/temp_folder.h"
#include "ui/cdlg_ex.h"
#include "ui/dialog_scripted_provider.h"
#include "ui/message_box.h"
#include "ui/picture_button.h"
#include "ui/skin_label.h"
#include "ui/skin_resources.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QListView>
#include <QSignalSpy>
#include <QTest>

namespace Orvane::Test {
namespace {

QList<int> Window_Text_Numbers()
{
    QList<int> numbers;
    for (int n = 301; n <= 339; ++n)
        numbers.append(n);
    numbers << 701 << 702 << 703 << 704 << 1002 << 1208 << 1209 << 1210;
    return numbers;
}

class Frm_PlayList_Test : public ::testing::Test {
protected:
    Frm_PlayList_Test()
    {
        Init_Skin_Resources();
        window.Set_Filters(filters);
        window.Apply_Texts(*texts);
        window.Set_Key_Forwarder([this](int code) { keys.append(code); });
        window.Set_Play_Track([this](int track) { played.append(track); });
    }

    // A media file on disk (empty: the fake analyser decides what it holds).
    QString Film(const QString& name, double seconds = 60.0)
    {
        const QString path = folder.Write(name, QByteArray());
        bench.analyser.Add_Video(path, seconds);
        return path;
    }

    void Wait_Until_Idle()
    {
        for (int turn = 0; turn < 2000 && window.Batch().Is_Busy(); ++turn)
            QTest::qWait(1);
        ASSERT_FALSE(window.Batch().Is_Busy());
    }

    QListView* List() const { return window.Pic_Playlist()->Lst_Playlist; }

    void Expect_List_Shows_Model()
    {
        Expect_In_Step(bench.model);
        ASSERT_EQ(List()->model()->rowCount(), bench.model.Track_Count());
        for (int row = 0; row < bench.model.Track_Count(); ++row)
            EXPECT_EQ(List()->model()->index(row, 0).data().toString(), bench.model.Track(row + 1).Title);
    }

    Message_Box_Recorder boxes;
    Temp_Folder folder;
    QString saved_directory = QDir::currentPath();
    Playlist_Bench bench;
    std::unique_ptr<Text_Table> texts = Test_Texts(Window_Text_Numbers());
    Open_Dialog_Filters filters = Build_Open_Dialog_Filters(*texts);
    Scripted_Dialog_Provider dialogs;
    CdlgEx dialog{dialogs};
    Settings settings;
    Frm_PlayList window{bench.model, bench.state, dialog, settings, *texts};
    QList<int> keys;
    QList<int> played;

    ~Frm_PlayList_Test() override { QDir::setCurrent(saved_directory); }
};

TEST_F(Frm_PlayList_Test, AddButtonAppendsOrWithShiftReplaces)
{
    const QString one = Film(QStringLiteral("one.avi"));
    const QString two = Film(QStringLiteral("two.avi"));
    const QString letter = folder.Write(QStringLiteral("letter.avi"), "not a film");
    const QString three = Film(QStringLiteral("three.avi"));

    dialogs.Queue_Open(QStringList{one, letter, two});
    QTest::mouseClick(window.Pic_Playlist()->Btn_Ajouter.picture, Qt::LeftButton);
    Wait_Until_Idle();
    ASSERT_EQ(dialogs.File_Requests().size(), 1u);
    const File_Dialog_Request& request = dialogs.File_Requests()[0];
    EXPECT_TRUE(request.multiple);
    EXPECT_EQ(request.name_filters,
              QStringList{"T701 *.avi;*.mpeg;*.mpg;*.dat;*.mpeg4;*.wav;*.mp3;*.mp2;*.mpa) "
                          "(*.avi *.mpeg *.mpg *.dat *.mpeg4 *.wav *.mp3 *.mp2 *.mpa)"});
    EXPECT_EQ(Paths(bench.model), (QStringList{one, two}));
    Expect_List_Shows_Model();

    // Without Shift the next files append, with Shift they replace.
    dialogs.Queue_Open(QStringList{three});
    QTest::mouseClick(window.Pic_Playlist()->Btn_Ajouter.picture, Qt::LeftButton);
    Wait_Until_Idle();
    EXPECT_EQ(Paths(bench.model), (QStringList{one, two, three}));
    dialogs.Queue_Open(QStringList{two, one});
    QTest::mouseClick(window.Pic_Playlist()->Btn_Ajouter.picture, Qt::LeftButton, Qt::ShiftModifier);
    Wait_Until_Idle();
    EXPECT_EQ(Paths(bench.model), (QStringList{two, one}));
    Expect_List_Shows_Model();

    // A cancelled dialog adds nothing; the player's Open button appends.
    QTest::mouseClick(window.Pic_Playlist()->Btn_Ajouter.picture, Qt::LeftButton, Qt::ShiftModifier);
    dialogs.Queue_Open(QStringList{three});
    window.Click_Add_Video();
    Wait_Until_Idle();
    EXPECT_EQ(Paths(bench.model), (QStringList{two, one, three}));
    EXPECT_TRUE(boxes.Boxes().empty());
}

TEST_F(Frm_PlayList_Test, ManyFilesShowProgressAndCancelStopsTheRest)
{
    QStringList files;
    for (int i = 1; i <= 200; ++i)
        files.append(Film(QStringLiteral("film %1.avi").arg(i, 3, 10, QLatin1Char('0')), 10.0));
    QSignalSpy progress(&window.Batch(), &Playlist_Window_Batch::Progress);
    window.show();

    window.Batch().Add_Files(files, 0);
    EXPECT_TRUE(window.Pic_Progression()->isVisible());
    EXPECT_FALSE(window.Pic_Playlist()->Strip()->isVisible());
    EXPECT_FALSE(window.Pic_Playlist()->Btn_Ouvrir.picture->isEnabled()) << "no second batch meanwhile";
    EXPECT_EQ(window.Pic_Progression()->Lbl_Annuler()->text(), "T322");
    EXPECT_EQ(window.Pic_Progression()->Lbl_Progression()->text(), "T320");
    while (progress.count() < 50)
        QTest::qWait(1);
    EXPECT_TRUE(window.Batch().Is_Busy()) << "the files go in one per turn of the event loop";
    EXPECT_EQ(window.Pic_Progression()->Progress_Text(), QStringLiteral("%1 / 200").arg(bench.model.Track_Count()));

    QTest::mouseClick(window.Pic_Progression()->Lbl_Annuler(), Qt::LeftButton);
    Wait_Until_Idle();
    const int added = bench.model.Track_Count();
    EXPECT_GE(added, 50);
    EXPECT_LT(added, 200);
    EXPECT_EQ(Paths(bench.model), files.mid(0, added));
    EXPECT_FALSE(window.Pic_Progression()->isVisible());
    EXPECT_TRUE(window.Pic_Playlist()->Strip()->isVisible());
    Expect_List_Shows_Model();
}

TEST_F(Frm_PlayList_Test, RemoveButtonTakesTheSelectedEntry)
{
    const QStringList films{Film(QStringLiteral("a.avi")), Film(QStringLiteral("b.avi")), Film(QStringLiteral("c.avi"))};
    window.Batch().Add_Files(films, 0);
    Wait_Until_Idle();
    bench.state.Current_Track = 3;

    List()->setCurrentIndex(List()->model()->index(0, 0));
    EXPECT_EQ(bench.model.Selected_Track(), 1);
    QTest::mouseClick(window.Pic_Playlist()->Btn_Retirer.caption, Qt::LeftButton);
    EXPECT_EQ(Paths(bench.model), (QStringList{films[1], films[2]}));
    EXPECT_EQ(bench.state.Current_Track, 2);
    Expect_List_Shows_Model();
    // The details show the entry now selected.
    EXPECT_EQ(window.Pic_Playlist()->Lbl_Val_Duree->text(), "00:01:00");
    EXPECT_EQ(window.Pic_Playlist()->Lbl_Val_Taille->text(), "320x240");
    EXPECT_EQ(window.Pic_Playlist()->Lbl_Val_Duree_Totale->text(), "00:02:00");

    List()->clearSelection();
    bench.model.Select_Track(0);
    EXPECT_FALSE(window.Pic_Playlist()->Btn_Retirer.picture->isEnabled());
}

TEST_F(Frm_PlayList_Test, OpenAndSaveGoThroughThePlaylistFiles)
{
    const QString one = Film(QStringLiteral("one.avi"));
    const QString two = Film(QStringLiteral("two.avi"));
    const QString english = folder.File(QStringLiteral("english.wav"));
    bench.analyser.Add_Audio(english, 60.0);
    Add_File(bench.model, Film(QStringLiteral("old.avi")));

    const QString list = folder.Write(QStringLiteral("list.orx"),
                                      QStringLiteral("#EXTORX\r\n#TRACK\r\nTitre=First\r\nMedia=%1\r\nAudio=%3\r\nSousT=\r\n"
                                                     "#TRACK\r\nTitre=Gone\r\nMedia=/nowhere.avi\r\nAudio=\r\nSousT=\r\n"
                                                     "#TRACK\r\nTitre=Second\r\nMedia=%2\r\nAudio=\r\nSousT=\r\n")
                                          .arg(one, two, english)
                                          .toUtf8());
    EXPECT_EQ(Playlist_Window_Batch::Count_Entries(list), 3);
    dialogs.Queue_Open(QStringList{list});
    QTest::mouseClick(window.Pic_Playlist()->Btn_Ouvrir.caption, Qt::LeftButton);
    EXPECT_EQ(dialogs.File_Requests().back().name_filters, QStringList{"T703(*.orx;*.m3u) (*.orx *.m3u)"});
    EXPECT_FALSE(dialogs.File_Requests().back().multiple);
    // Loading replaced the old track; the entry whose media is gone is left out.
    EXPECT_EQ(Titles(bench.model), (QStringList{"First", "Second"}));
    EXPECT_EQ(bench.model.Track(1).Associated_Count, 1);
    EXPECT_EQ(window.Pic_Progression()->Progress_Text(), "3 / 3");
    Expect_List_Shows_Model();

    const QString saved = folder.File(QStringLiteral("saved.orx"));
    dialogs.Queue_Save(saved);
    QTest::mouseClick(window.Pic_Playlist()->Btn_Sauver.picture, Qt::LeftButton);
    EXPECT_EQ(dialogs.File_Requests().back().name_filters, QStringList{"T703 (*.orx) (*.orx)"});
    EXPECT_EQ(dialogs.File_Requests().back().default_suffix, "orx");
    Text_File_Reader written(saved);
    QStringList lines;
    while (!written.At_End())
        lines.append(written.Read_Line());
    EXPECT_EQ(lines, (QStringList{"#EXTORX", "#TRACK", "Titre=First", "Media=" + one, "Audio=" + english, "SousT=",
                                  "#TRACK", "Titre=Second", "Media=" + two, "Audio=", "SousT="}));
}

TEST_F(Frm_PlayList_Test, CaptionsFollowTheFixedOrderAndTheLanguage)
{
    const std::array<int16_t, 17> expected{301, 302, 303, 304, 305, 306, 307, 308, 309,
                                           310, 311, 312, 313, 316, 315, 318, 319};
    EXPECT_EQ(Frm_PlayList::Caption_Numbers(), expected);
    // Each number lands on the label of its role.
    const char* const roles[17] = {
        "Lbl_Onglet_Playlist", "Lbl_Onglet_Audio", "Lbl_Onglet_ST", "Lbl_Btn_Ajouter", "Lbl_Btn_Retirer",
        "Lbl_Btn_Ouvrir", "Lbl_Btn_Sauver", "Lbl_Duree", "Lbl_Taille", "Lbl_Type", "Lbl_Streams",
        "Lbl_Duree_Totale", "Lbl_Audio_Asso", "Lbl_Btn_ST", "Lbl_Delai", "Lbl_Info_ST_0", "Lbl_Info_ST_1",
    };
    for (std::size_t k = 0; k < 17; ++k) {
        auto* label = window.findChild<Skin_Label*>(QString::fromLatin1(roles[k]));
        ASSERT_NE(label, nullptr) << roles[k];
        EXPECT_EQ(label->text(), QStringLiteral("T%1").arg(expected[k])) << roles[k];
    }
    EXPECT_EQ(window.Pic_ST()->Lbl_Titre_ST->text(), "T314");
    EXPECT_EQ(window.Pic_ST()->Lbl_Val_Piste->text(), "T334") << "no track chosen";
    EXPECT_EQ(window.Pic_ST()->Lbl_Val_Titre_ST->text(), "T324");

    // A change of language reaches every caption without reopening the window.
    Temp_Folder other;
    QByteArray french = "0.5b\r\n\r\nFrancais;English\r\n\r\n";
    for (int n = 301; n <= 339; ++n)
        french += QStringLiteral("%1;F%2;E%2\r\n").arg(n, 4, 10, QLatin1Char('0')).arg(n).toUtf8();
    french += "9999;fin;end\r\n";
    other.Write(QStringLiteral("Lang.ini"), french);
    Text_Table french_texts;
    ASSERT_TRUE(french_texts.Load_Language(other.Path(), QStringLiteral("Francais")));
    window.Apply_Texts(french_texts);
    for (std::size_t k = 0; k < 17; ++k)
        EXPECT_EQ(window.findChild<Skin_Label*>(QString::fromLatin1(roles[k]))->text(),
                  QStringLiteral("F%1").arg(expected[k]));
    EXPECT_EQ(window.Pic_Progression()->Lbl_Annuler()->text(), "F322");
}

TEST_F(Frm_PlayList_Test, KeysGoToThePlayerAndDoubleClickPlays)
{
    window.Batch().Add_Files({Film(QStringLiteral("a.avi")), Film(QStringLiteral("b.avi"))}, 0);
    Wait_Until_Idle();
    window.show();
    List()->setCurrentIndex(List()->model()->index(0, 0));

    QTest::keyClick(List(), Qt::Key_5);
    QTest::keyClick(List(), Qt::Key_Space);
    QTest::keyClick(List(), 'B');
    QTest::keyClick(List(), Qt::Key_Shift);
    QTest::keyClick(&window, Qt::Key_F);
    QTest::keyClick(&window, Qt::Key_F5);
    EXPECT_EQ(keys, (QList<int>{'5', ' ', 'B', 'f', 0}));
    // The arrows stay with the list.
    QTest::keyClick(List(), Qt::Key_Down);
    EXPECT_EQ(bench.model.Selected_Track(), 2);
    EXPECT_EQ(keys.size(), 5);

    const QRect second = List()->visualRect(List()->model()->index(1, 0));
    QTest::mouseClick(List()->viewport(), Qt::LeftButton, {}, second.center());
    QTest::mouseDClick(List()->viewport(), Qt::LeftButton, {}, second.center());
    EXPECT_EQ(played, QList<int>{2});
}

TEST_F(Frm_PlayList_Test, AudioAndSubtitleTabsActOnTheSelectedTrack)
{
    window.Batch().Add_Files({Film(QStringLiteral("a.avi")), Film(QStringLiteral("b.avi"))}, 0);
    Wait_Until_Idle();
    bench.state.Current_Track = 1;
    bench.model.Select_Track(2);
    const QString english = folder.File(QStringLiteral("english.wav"));
    bench.analyser.Add_Audio(english, 90.0);
    Subtitle_Table subtitle;
    subtitle.Subtitle_Title = QStringLiteral("Les sous-titres");
    subtitle.Subtitle_Author = QStringLiteral("Ann Author");
    subtitle.Subtitle_Source = QStringLiteral("DVD zone 2");
    subtitle.Subtitle_Delay = 5;
    const QString sub = folder.Write(QStringLiteral("b.fr.sub"), QByteArray());
    bench.Add_Subtitle_File(sub, subtitle);

    window.Show_Tab(Frm_PlayList::Tab_Audio);
    EXPECT_TRUE(window.Pic_Audio()->isVisibleTo(&window));
    EXPECT_FALSE(window.Pic_Playlist()->isVisibleTo(&window));
    dialogs.Queue_Open(QStringList{english});
    QTest::mouseClick(window.Pic_Audio()->Btn_Ajouter_Audio.picture, Qt::LeftButton);
    EXPECT_EQ(dialogs.File_Requests().back().name_filters, QStringList{"T704(*.wav;*.mp3;*.mpa) (*.wav *.mp3 *.mpa)"});
    EXPECT_EQ(bench.model.Track(2).Associated_Count, 1);
    EXPECT_EQ(window.Pic_Audio()->Lst_Audio_Asso->model()->index(0, 0).data().toString(), "english");
    EXPECT_EQ(window.Pic_Audio()->Lbl_Val_Duree_Audio->text(), "00:01:30");
    EXPECT_EQ(window.Pic_Audio()->Lbl_Val_Piste->text(), "b.avi");

    window.Show_Tab(Frm_PlayList::Tab_Subtitles);
    dialogs.Queue_Open(QStringList{sub});
    QTest::mouseClick(window.Pic_ST()->Btn_ST.caption, Qt::LeftButton);
    const Playlist_Panel_Subtitles& panel = *window.Pic_ST();
    EXPECT_EQ(bench.model.Track(2).Subtitle_Path, sub);
    EXPECT_EQ(panel.Lbl_Val_Titre_ST->text(), "Les sous-titres");
    EXPECT_EQ(panel.Lbl_Val_Info_ST[0]->text(), "Ann Author");
    EXPECT_EQ(panel.Lbl_Val_Info_ST[1]->text(), "DVD zone 2");
    EXPECT_EQ(panel.Lbl_Val_Delai->text(), "00:00:05");
    EXPECT_FALSE(panel.Img_Option_Coche->isHidden()) << "the question was answered OK";

    QTest::mouseClick(panel.Img_Option, Qt::LeftButton);
    EXPECT_FALSE(bench.model.Track(2).Subtitle_Flag);
    EXPECT_TRUE(panel.Img_Option_Coche->isHidden());

    // The delay buttons move the current track (1), and the panel shows it.
    bench.subtitles.Subtitle_Delay = 5;
    QTest::mouseClick(panel.Lbl_Var_Delai[0], Qt::LeftButton);
    EXPECT_EQ(bench.model.Track(1).Subtitle_Delay, 6);
    EXPECT_EQ(bench.model.Track(2).Subtitle_Delay, 5);
    EXPECT_EQ(panel.Lbl_Val_Piste->text(), "a.avi");
    EXPECT_EQ(panel.Lbl_Val_Delai->text(), "00:00:06");

    // To look at the window: ORVANE_SNAPSHOT_DIR=<folder> writes each tab in both shipped languages.
    if (const QByteArray shots = qgetenv("ORVANE_SNAPSHOT_DIR"); !shots.isEmpty()) {
        bench.model.Refresh_Track_Info(2);
        for (const QString& language : {QStringLiteral("English"), QStringLiteral("Français")}) {
            Text_Table shipped;
            ASSERT_TRUE(shipped.Load_Language(QStringLiteral(ORVANE_SOURCE_DIR "/resources"), language));
            window.Apply_Texts(shipped);
            for (int tab : {Frm_PlayList::Tab_Playlist, Frm_PlayList::Tab_Audio, Frm_PlayList::Tab_Subtitles}) {
                window.Show_Tab(tab);
                window.grab().save(QStringLiteral("%1/playlist_%2_%3.png")
                                       .arg(QString::fromUtf8(shots), language.left(2)).arg(tab));
            }
        }
    }
}

} // namespace
} // namespace Orvane::Test
