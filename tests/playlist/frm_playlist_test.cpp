// The playlist window on the offscreen platform: its list stays the model's
// list through adds, removals and loads; its buttons go through the shared dialog object.
#include "config/settings.h"
#include "playlist/frm_playlist.h"
#include "playlist/playlist_panel_audio.h"
#include "playlist/playlist_panel_subtitles.h"
#include "playlist/playlist_panel_tracks.h"
#include "playlist/playlist_window_batch.h"
#include "playlist/playlist_window_progress.h"
#include "playlist_test_support.h"
#include "support/temp_folder.h"
#include "ui/cdlg_ex.h"
#include "ui/dialog_scripted_provider.h"
#include "ui/picture_button.h"
#include "ui/skin_label.h"
#include "ui/skin_resources.h"

#include <gtest/gtest.h>

#include <QListView>
#include <QSignalSpy>
#include <QTest>

namespace Orvane::Test {
namespace {

class Frm_PlayList_Test : public ::testing::Test {
protected:
    Frm_PlayList_Test()
    {
        Init_Skin_Resources();
        window.Set_Filters(Build_Open_Dialog_Filters(*bench.texts));
        window.Apply_Texts(*bench.texts);
        window.Set_Key_Forwarder([this](int code) { keys << code; });
        window.Set_Play_Track([this](int track) { played << track; });
    }

    // Media of a minute that the fake analyser knows.
    QStringList Films(const QStringList& names, QSize picture = {320, 240})
    {
        QStringList paths;
        for (const QString& name : names)
            paths << bench.analyser.Add(folder.File(name), 60.0, picture);
        return paths;
    }
    // Clicks (after queueing the files the open dialog is to give), then lets the adding batch run to its end.
    void Click(QWidget* widget, Qt::KeyboardModifiers modifiers = {}, const QStringList& chosen = {})
    {
        if (!chosen.isEmpty())
            dialogs.Queue_Open(chosen);
        if (widget)
            QTest::mouseClick(widget, Qt::LeftButton, modifiers);
        ASSERT_TRUE(QTest::qWaitFor([&] { return !window.Batch().Is_Busy(); }, 10000));
    }
    // The window's rows, which must be the model's titles.
    QStringList Shown() const
    {
        QStringList rows;
        for (int row = 0; row < tracks.Lst_Playlist->model()->rowCount(); ++row)
            rows << tracks.Lst_Playlist->model()->index(row, 0).data().toString();
        EXPECT_EQ(rows, Paths(bench.model, &Track_Record::Title));
        return rows;
    }

    Message_Box_Recorder boxes;
    Temp_Folder folder;
    Playlist_Bench bench;
    Scripted_Dialog_Provider dialogs;
    CdlgEx dialog{dialogs};
    Settings settings;
    Frm_PlayList window{bench.model, bench.state, dialog, settings, *bench.texts};
    Playlist_Panel_Tracks& tracks = *window.Pic_Playlist();
    QList<int> keys, played;
};

TEST_F(Frm_PlayList_Test, AddAndRemoveButtonsKeepTheListInStep)
{
    const QStringList films = Films({"one.avi", "two.avi", "three.avi"});
    Click(tracks.Btn_Ajouter.picture, {}, {films[0], folder.Write("letter.avi", "not a film"), films[1]});
    EXPECT_TRUE(dialogs.File_Requests().at(0).multiple);
    EXPECT_EQ(dialogs.File_Requests()[0].name_filters,
              QStringList{"T701 *.avi;*.mpeg;*.mpg;*.dat;*.mpeg4;*.wav;*.mp3;*.mp2;*.mpa) "
                          "(*.avi *.mpeg *.mpg *.dat *.mpeg4 *.wav *.mp3 *.mp2 *.mpa)"});
    EXPECT_EQ(Shown(), (QStringList{"one.avi", "two.avi"}));
    // Without Shift the files append, with Shift they replace; a cancelled dialog adds nothing.
    Click(tracks.Btn_Ajouter.picture, {}, {films[2]});
    Click(tracks.Btn_Ajouter.picture, Qt::ShiftModifier, {films[1], films[0]});
    Click(tracks.Btn_Ajouter.picture, Qt::ShiftModifier);
    EXPECT_EQ(Shown(), (QStringList{"two.avi", "one.avi"}));
    dialogs.Queue_Open(QStringList{films[2]});
    window.Click_Add_Video();  // the player's Open button appends
    Click(nullptr);
    EXPECT_EQ(Shown(), (QStringList{"two.avi", "one.avi", "three.avi"}));
    EXPECT_TRUE(boxes.Boxes().empty());

    bench.state.Current_Track = 3;
    tracks.Lst_Playlist->setCurrentIndex(tracks.Lst_Playlist->model()->index(0, 0));
    Click(tracks.Btn_Retirer.caption);
    EXPECT_EQ(Shown(), (QStringList{"one.avi", "three.avi"}));
    EXPECT_EQ(bench.state.Current_Track, 2);
    EXPECT_EQ(tracks.Lbl_Val_Duree->text() + " " + tracks.Lbl_Val_Taille->text() + " "
                  + tracks.Lbl_Val_Duree_Totale->text(),
              "00:01:00 320x240 00:02:00")
        << "the details show the entry now selected";
    window.Window_State().Select_Track(0);
    EXPECT_FALSE(tracks.Btn_Retirer.picture->isEnabled());
}

// What the batch does on cancel is the batch's tests' concern; here the window's side of it.
TEST_F(Frm_PlayList_Test, ABatchShowsProgressInPlaceOfTheButtonsUntilCancelled)
{
    QStringList files;
    for (int i = 1; i <= 100; ++i)
        files << Films({QStringLiteral("film %1.avi").arg(i, 3, 10, QLatin1Char('0'))});
    QSignalSpy progress(&window.Batch(), &Playlist_Window_Batch::Progress);
    window.show();
    window.Batch().Add_Files(files, 0);
    Playlist_Window_Progress& panel = *window.Pic_Progression();
    const auto busy_look = [&] {  // the progress strip in place of the buttons, which are not usable
        return QString::number(panel.isVisible()) + QString::number(tracks.Strip()->isVisible())
               + QString::number(tracks.Btn_Ouvrir.picture->isEnabled());
    };
    EXPECT_EQ(busy_look(), "100");
    EXPECT_EQ(panel.Lbl_Annuler()->text() + " " + panel.Lbl_Progression()->text(), "T322 T320");
    ASSERT_TRUE(QTest::qWaitFor([&] { return progress.count() >= 10; }, 10000));
    EXPECT_EQ(panel.Progress_Text(), QStringLiteral("%1 / 100").arg(bench.model.Track_Count()));
    Click(panel.Lbl_Annuler());
    EXPECT_EQ(busy_look(), "011");
}

TEST_F(Frm_PlayList_Test, OpenAndSaveGoThroughThePlaylistFiles)
{
    const QStringList films = Films({"old.avi", "one.avi", "two.avi"}) + Films({"english.wav"}, {});
    Add_File(bench.model, films[0]);
    const QStringList lines{"#EXTORX", "#TRACK", "Titre=First", "Media=" + films[1], "Audio=" + films[3], "SousT=",
                            "#TRACK", "Titre=Gone", "Media=/nowhere.avi", "Audio=", "SousT=", "#TRACK",
                            "Titre=Second", "Media=" + films[2], "Audio=", "SousT="};
    const QString list = folder.Write("list.orx", lines.join("\r\n").toUtf8());
    Click(tracks.Btn_Ouvrir.caption, {}, {list});
    EXPECT_EQ(dialogs.File_Requests().back().name_filters, QStringList{"T703(*.orx;*.m3u) (*.orx *.m3u)"});
    EXPECT_FALSE(dialogs.File_Requests().back().multiple);
    EXPECT_EQ(Shown(), (QStringList{"First", "Second"})) << "loading replaced the old track and left out the gone one";
    EXPECT_EQ(window.Pic_Progression()->Progress_Text(), "3 / 3") << "the entries counted beforehand";
    dialogs.Queue_Save(folder.File("saved.orx"));
    Click(tracks.Btn_Sauver.picture);
    EXPECT_EQ(dialogs.File_Requests().back().name_filters, QStringList{"T703 (*.orx) (*.orx)"});
    EXPECT_EQ(dialogs.File_Requests().back().default_suffix, "orx");
    EXPECT_TRUE(folder.Read("saved.orx").startsWith("#EXTORX\r\n#TRACK\r\nTitre=First\r\nMedia=" + films[1].toUtf8()));
}

TEST_F(Frm_PlayList_Test, CaptionsFollowTheFixedOrderAndTheLanguage)
{
    // The caption list's order is fixed: 316 comes before 315 and 317 is not in it.
    const std::array<int16_t, 17> expected{301, 302, 303, 304, 305, 306, 307, 308, 309,
                                           310, 311, 312, 313, 316, 315, 318, 319};
    const QStringList roles = QStringLiteral("Lbl_Onglet_Playlist Lbl_Onglet_Audio Lbl_Onglet_ST Lbl_Btn_Ajouter "
                                             "Lbl_Btn_Retirer Lbl_Btn_Ouvrir Lbl_Btn_Sauver Lbl_Duree Lbl_Taille "
                                             "Lbl_Type Lbl_Streams Lbl_Duree_Totale Lbl_Audio_Asso Lbl_Btn_ST "
                                             "Lbl_Delai Lbl_Info_ST_0 Lbl_Info_ST_1").split(u' ');
    const auto french = Test_Texts(QStringLiteral("Francais"));
    for (const QString language : {"T", "F"}) {
        if (language == "F")
            window.Apply_Texts(*french);  // reaches every caption without reopening the window
        for (std::size_t k = 0; k < 17; ++k) {
            auto* label = window.findChild<Skin_Label*>(roles[int(k)]);
            ASSERT_NE(label, nullptr) << roles[int(k)].toStdString();
            EXPECT_EQ(label->text(), language + QString::number(expected[k]));
        }
    }
    EXPECT_EQ(window.Pic_Progression()->Lbl_Annuler()->text(), "F322");
    EXPECT_EQ(window.Pic_ST()->Lbl_Titre_ST->text() + window.Pic_ST()->Lbl_Val_Piste->text(), "F314F334");
}

TEST_F(Frm_PlayList_Test, KeysGoToThePlayerAndDoubleClickPlays)
{
    Click(tracks.Btn_Ajouter.picture, {}, Films({"a.avi", "b.avi"}));
    window.show();
    QListView& list = *tracks.Lst_Playlist;
    list.setCurrentIndex(list.model()->index(0, 0));
    QTest::keyClick(&list, 'B');
    for (Qt::Key key : {Qt::Key_5, Qt::Key_Space, Qt::Key_Shift, Qt::Key_Down})
        QTest::keyClick(&list, key);
    QTest::keyClick(&window, Qt::Key_F);
    QTest::keyClick(&window, Qt::Key_F5);
    EXPECT_EQ(keys, (QList<int>{'B', '5', ' ', 'f', 0})) << "the arrows stay with the list";
    EXPECT_EQ(window.Window_State().Selected_Track(), 2);
    const QPoint second = list.visualRect(list.model()->index(1, 0)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, second);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, second);
    EXPECT_EQ(played, QList<int>{2});
}

TEST_F(Frm_PlayList_Test, AudioAndSubtitleTabsActOnTheSelectedTrack)
{
    Click(tracks.Btn_Ajouter.picture, {}, Films({"a.avi", "b.avi"}));
    bench.state.Current_Track = 1;
    window.Window_State().Select_Track(2);
    window.Show_Tab(Frm_PlayList::Tab_Audio);
    const Playlist_Panel_Audio& audio = *window.Pic_Audio();
    EXPECT_FALSE(tracks.isVisibleTo(&window)) << "one tab at a time";
    Click(audio.Btn_Ajouter_Audio.picture, {}, Films({"english.wav"}, {}));
    EXPECT_EQ(dialogs.File_Requests().back().name_filters, QStringList{"T704(*.wav;*.mp3;*.mpa) (*.wav *.mp3 *.mpa)"});
    EXPECT_EQ(audio.Lst_Audio_Asso->model()->index(0, 0).data().toString() + " " + audio.Lbl_Val_Duree_Audio->text()
                  + " " + audio.Lbl_Val_Piste->text(),
              "english 00:01:00 b.avi");

    Subtitle_Table& subtitle = bench.subtitle_files[folder.Write("b.fr.sub", {})];
    subtitle.Subtitle_Title = QStringLiteral("Les sous-titres");
    subtitle.Subtitle_Author = QStringLiteral("Ann Author");
    subtitle.Subtitle_Delay = 5;
    window.Show_Tab(Frm_PlayList::Tab_Subtitles);
    const Playlist_Panel_Subtitles& panel = *window.Pic_ST();
    Click(panel.Btn_ST.caption, {}, {folder.File("b.fr.sub")});
    EXPECT_EQ(dialogs.File_Requests().back().name_filters, QStringList{"T702 (*.sub) (*.sub)"});
    EXPECT_EQ(panel.Lbl_Val_Titre_ST->text() + " " + panel.Lbl_Val_Info_ST[0]->text() + " "
                  + panel.Lbl_Val_Delai->text(),
              "Les sous-titres Ann Author 00:00:05");
    EXPECT_FALSE(panel.Img_Option_Coche->isHidden()) << "the question was answered OK";
    Click(panel.Img_Option);
    EXPECT_FALSE(bench.model.Track(2).Subtitle_Flag);
    EXPECT_TRUE(panel.Img_Option_Coche->isHidden());
    Click(panel.Lbl_Var_Delai[0]);  // moves the current track (1), which the panel then shows
    EXPECT_EQ(std::pair(bench.model.Track(1).Subtitle_Delay, bench.model.Track(2).Subtitle_Delay), std::pair(6, 5));
    EXPECT_EQ(panel.Lbl_Val_Piste->text() + " " + panel.Lbl_Val_Delai->text(), "a.avi 00:00:06");
}

} // namespace
} // namespace Orvane::Test
