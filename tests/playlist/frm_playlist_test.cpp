// The playlist window on the offscreen platform: its list stays the model's
// list through adds, removals and loads; its buttons go through the shared dialog object.
#include "config/settings.h"
#include "playlist/frm_playlist.h"
#include "playlist/playlist_panel_tracks.h"
#include "playlist/playlist_window_batch.h"
#include "playlist/playlist_window_progress.h"
#include "playlist_test_support.h"
#include "ui/cdlg_ex.h"
#include "ui/dialog_scripted_provider.h"
#include "ui/picture_button.h"
#include "ui/skin_label.h"
#include "ui/skin_resources.h"

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
    QStringList Films(const QStringList& names)
    {
        QStringList paths;
        for (const QString& name : names)
            paths << bench.analyser.Add(folder.File(name), 60.0);
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

TEST_F(Frm_PlayList_Test, TrackButtonsKeepTheListInStep)
{
    const QStringList films = Films({"one.avi", "two.avi", "three.avi"});
    Click(tracks.Btn_Ajouter.picture, {}, {films[0], folder.Write("letter.avi", "not a film"), films[1]});
    EXPECT_EQ(Shown(), (QStringList{"one.avi", "two.avi"}));
    EXPECT_TRUE(dialogs.File_Requests().at(0).multiple);
    // Without Shift the files append, with Shift they replace; a cancelled dialog adds nothing.
    Click(tracks.Btn_Ajouter.picture, {}, {films[2]});
    bench.player.calls.clear();
    Click(tracks.Btn_Ajouter.picture, Qt::ShiftModifier, {films[1], films[0]});
    Click(tracks.Btn_Ajouter.picture, Qt::ShiftModifier);
    EXPECT_EQ(Shown(), (QStringList{"two.avi", "one.avi"}));
    // The old track's menus are cleared while its record is still there.
    EXPECT_EQ(bench.player.calls, (QStringList{"Clear_Audio_Menus(1) current=1 count=3",
                                               "Reset_Player() current=0 count=0",
                                               "Open_First_Track(" + films[1] + ") current=1 count=1"}));
    dialogs.Queue_Open(QStringList{films[2]});
    window.Click_Add_Video();  // the player's Open button appends
    Click(nullptr);
    EXPECT_EQ(Shown(), (QStringList{"two.avi", "one.avi", "three.avi"}));

    tracks.Lst_Playlist->setCurrentIndex(tracks.Lst_Playlist->model()->index(0, 0));
    Click(tracks.Btn_Retirer.caption);
    EXPECT_EQ(Shown(), (QStringList{"one.avi", "three.avi"}));
    EXPECT_EQ(tracks.Lbl_Val_Duree->text() + " " + tracks.Lbl_Val_Taille->text() + " "
                  + tracks.Lbl_Val_Duree_Totale->text(),
              "00:01:00 320x240 00:02:00")
        << "the details show the entry now selected";
    window.Window_State().Select_Track(0);
    EXPECT_FALSE(tracks.Btn_Retirer.picture->isEnabled());

    // Saved and opened again, the list comes back whole in place of the one there (the entries counted beforehand).
    dialogs.Queue_Save(folder.File("saved.orx"));
    Click(tracks.Btn_Sauver.picture);
    EXPECT_EQ(dialogs.File_Requests().back().default_suffix, "orx");
    Add_File(bench.model, films[1]);
    Click(tracks.Btn_Ouvrir.caption, {}, {folder.File("saved.orx")});
    EXPECT_EQ(Shown(), (QStringList{"one.avi", "three.avi"}));
    EXPECT_EQ(window.Pic_Progression()->Progress_Text(), "2 / 2");
    const std::vector<File_Dialog_Request>& asked = dialogs.File_Requests();
    EXPECT_EQ(asked.at(0).name_filters, QStringList{"T701 *.avi;*.mpeg;*.mpg;*.dat;*.mpeg4;*.wav;*.mp3;*.mp2;*.mpa) "
                                                    "(*.avi *.mpeg *.mpg *.dat *.mpeg4 *.wav *.mp3 *.mp2 *.mpa)"});
    EXPECT_EQ(asked.at(5).name_filters + asked.at(6).name_filters,
              (QStringList{"T703 (*.orx) (*.orx)", "T703(*.orx;*.m3u) (*.orx *.m3u)"}));
    EXPECT_TRUE(boxes.Boxes().empty());
}

// What the batch does on cancel is the batch's tests' concern; here the window's side of it.
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

} // namespace
} // namespace Orvane::Test
