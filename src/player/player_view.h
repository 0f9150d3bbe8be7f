#pragma once

#include <QString>
#include <QStringList>

namespace Orvane {

// The controls of the player window as the session and its display logic
// drive them. Frm_Player implements it; tests use a recording fake. Pixel
// positions are those of the player window's own coordinates.
class Player_View {
public:
    virtual ~Player_View() = default;

    // Img_Btn(i): top edge in pixels (press look: resting top + 1).
    virtual void Set_Button_Top(int index, int top) = 0;
    virtual int Button_Top(int index) const = 0;
    // Img_Vol(level) brought to the front.
    virtual void Show_Volume_Level(int level) = 0;

    // Lbl_Affichage_Temps and Lbl_Indic_Type_Temps.
    virtual void Set_Time_Text(const QString& text) = 0;
    virtual QString Time_Text() const = 0;
    virtual void Set_Time_Mode_Caption(const QString& text) = 0;
    // Img_Avancement: left edge in pixels along Lbl_Avancement.
    virtual void Set_Cursor_Left(int pixels) = 0;
    virtual int Progress_Track_Width() const = 0;  // pixels (310)

    // Status labels and lamps.
    virtual void Set_Track_Number_Text(const QString& text) = 0;  // Lbl_Affichage_Rang
    virtual void Set_Title_Text(const QString& text) = 0;         // Lbl_Affichage_Fichier
    virtual QString Title_Text() const = 0;
    virtual void Set_Audio_Text(const QString& text) = 0;         // Lbl_Affichage_ML
    virtual void Set_Subtitle_Text(const QString& text) = 0;      // Lbl_Affichage_Sub
    virtual void Set_Audio_Lamp_Visible(bool visible) = 0;        // Img_Temoin_ML
    virtual void Set_Subtitle_Lamp_Visible(int index, bool visible) = 0;  // Img_Temoin_ST(0..1)

    // Mnu_Popup: Mnu_Num_Stream(1..n), Mnu_Separation, Mnu_Audio_Secondaire(1..m).
    // Entry 1 of each array always exists; entries 2.. are created and removed.
    virtual void Set_Stream_Entry_Count(int count) = 0;   // keeps entry 1 when count < 1
    virtual void Set_Stream_Entry(int k, const QString& caption, bool visible) = 0;
    virtual void Set_Stream_Checked(int k, bool checked) = 0;
    virtual void Set_Associated_Entry_Count(int count) = 0;
    virtual void Set_Associated_Entry(int j, const QString& caption, bool visible) = 0;
    virtual void Set_Associated_Checked(int j, bool checked) = 0;
    virtual void Set_Separation_Visible(bool visible) = 0;
    virtual void Popup_Audio_Menu() = 0;

    // Window-level actions.
    virtual void Bring_To_Front() = 0;
    virtual void Set_Window_Height(int pixels) = 0;
};

} // namespace Orvane
