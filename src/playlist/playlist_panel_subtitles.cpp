#include "playlist/playlist_panel_subtitles.h"

#include "base/time_text.h"
#include "playlist/playlist_model.h"
#include "playlist/playlist_window_layout.h"
#include "ui/picture_button.h"
#include "ui/skin_label.h"
#include "ui/skin_palette.h"

#include <QFileInfo>
#include <QPainter>

namespace Orvane {

namespace Layout = Playlist_Window_Layout;

namespace {
constexpr int Info_Top = 44;
constexpr int Info_Row = 24;
constexpr QRect Info_Caption(int row) { return QRect(25, Info_Top + row * Info_Row, 80, 20); }
constexpr QRect Info_Value(int row) { return QRect(105, Info_Top + row * Info_Row, 290, 20); }
constexpr int Delay_Rule = 150;
constexpr QRect Delay_Caption(25, 162, 250, 18);
constexpr QRect Delay_Value(25, 186, 120, 34);
constexpr QRect Delay_Up(150, 186, 22, 16);
constexpr QRect Delay_Down(150, 204, 22, 16);
constexpr QRect Option_Box(27, 246, 14, 14);
constexpr QRect Option_Caption(49, 243, 340, 20);
} // namespace

Playlist_Panel_Subtitles::Playlist_Panel_Subtitles(Playlist_Model& model, QWidget* parent)
    : QWidget(parent), model_(model), strip_(new QWidget(this))
{
    setObjectName(QStringLiteral("Pic_ST"));
    Lbl_Piste = Make_Label(this, QStringLiteral("Lbl_Piste_ST"), Layout::Track_Caption, 11, Skin_Palette::Display_Dim);
    Lbl_Val_Piste = Make_Label(this, QStringLiteral("Lbl_Val_Piste_ST"), Layout::Track_Title, 13,
                               Skin_Palette::Display_Text, true);

    Lbl_Titre_ST = Make_Label(this, QStringLiteral("Lbl_Titre_ST"), Info_Caption(0), 11, Skin_Palette::Display_Dim);
    Lbl_Val_Titre_ST = Make_Label(this, QStringLiteral("Lbl_Val_Titre_ST"), Info_Value(0), 13, Skin_Palette::Accent,
                                  true);
    for (int i = 0; i < 2; ++i) {
        Lbl_Info_ST[std::size_t(i)] = Make_Label(this, QStringLiteral("Lbl_Info_ST_%1").arg(i), Info_Caption(i + 1),
                                                 11, Skin_Palette::Display_Dim);
        Lbl_Val_Info_ST[std::size_t(i)] = Make_Label(this, QStringLiteral("Lbl_Val_Info_ST_%1").arg(i),
                                                     Info_Value(i + 1), 12, Skin_Palette::Display_Text);
    }
    Lbl_Fichier_ST = Make_Label(this, QStringLiteral("Lbl_Fichier_ST"), QRect(105, Info_Top + 3 * Info_Row + 2, 290, 18),
                                11, Skin_Palette::Display_Dim);

    Lbl_Delai = Make_Label(this, QStringLiteral("Lbl_Delai"), Delay_Caption, 10, Skin_Palette::Accent);
    Lbl_Delai->setFont(Skin_Palette::Label_Font(10, true, true));
    Lbl_Val_Delai = Make_Label(this, QStringLiteral("Lbl_Val_Delai"), Delay_Value, 12, Skin_Palette::Display_Text);
    Lbl_Val_Delai->setFont(Skin_Palette::Time_Font(24));
    Lbl_Var_Delai[0] = Make_Picture_Button(this, QStringLiteral("button_delay_up"), QStringLiteral("Lbl_Var_Delai_0"),
                                           Delay_Up);
    Lbl_Var_Delai[1] = Make_Picture_Button(this, QStringLiteral("button_delay_down"),
                                           QStringLiteral("Lbl_Var_Delai_1"), Delay_Down);

    Img_Option = Make_Picture_Button(this, QStringLiteral("option_box"), QStringLiteral("Img_Option"), Option_Box);
    Img_Option_Coche = new Skin_Picture(QStringLiteral("option_mark"), Img_Option);
    Img_Option_Coche->setObjectName(QStringLiteral("Img_Option_Coche"));
    Img_Option_Coche->setGeometry(0, 0, Option_Box.width(), Option_Box.height());
    Lbl_Option = Make_Label(this, QStringLiteral("Lbl_Option"), Option_Caption, 12, Skin_Palette::Panel_Text);
    Lbl_Option->Set_Clickable(true);
    Lbl_Option->Set_Button_Role(true);
    Lbl_Option->Set_Colors(Skin_Palette::Display_Text, Skin_Palette::Panel_Hover);

    strip_->setObjectName(QStringLiteral("Pic_Boutons_ST"));
    strip_->setGeometry(Layout::Strip);
    Btn_ST = Make_Captioned_Button(strip_, QStringLiteral("button_add"), QStringLiteral("Img_Btn_ST"),
                                   QStringLiteral("Lbl_Btn_ST"), Layout::Strip_Slot(0, 0), 330);
    Show_Subtitle(0);
}

void Playlist_Panel_Subtitles::Show_Subtitle(int track)
{
    const bool is_track = model_.Is_Track(track);
    const Track_Record empty;
    const Track_Record& record = is_track ? model_.Track(track) : empty;
    const bool has_subtitle = !record.Subtitle_Path.isEmpty();
    Lbl_Val_Piste->setText(is_track ? record.Title : No_Track_Text);
    Lbl_Val_Titre_ST->setText(has_subtitle ? record.Subtitle_Name : No_Subtitle_Text);
    Lbl_Val_Info_ST[0]->setText(has_subtitle ? record.Subtitle_Info_1 : QString());
    Lbl_Val_Info_ST[1]->setText(has_subtitle ? record.Subtitle_Info_2 : QString());
    Lbl_Fichier_ST->setText(has_subtitle ? QFileInfo(record.Subtitle_Path).fileName() : QString());
    Lbl_Fichier_ST->setToolTip(record.Subtitle_Path);
    Lbl_Val_Delai->setText(Time_Text(record.Subtitle_Delay));
    Img_Option_Coche->setVisible(record.Subtitle_Flag);
    Set_Usable(Img_Option, is_track);
    Lbl_Option->setEnabled(is_track);
}

void Playlist_Panel_Subtitles::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    Paint_Rule(painter, 34, Layout::Rule_Left, Layout::Rule_Right);
    Paint_Rule(painter, Delay_Rule, Layout::Rule_Left, Layout::Rule_Right);
}

} // namespace Orvane
