#pragma once

#include "player/player_view.h"

#include <QPixmap>
#include <QWidget>

#include <array>
#include <vector>

class QAction;
class QMenu;

namespace Orvane {

class Picture_Button;
class Skin_Label;
class Skin_Picture;
class Skin_Progress_Track;
class Text_Table;

// Frm_Player: the skinned player bar. It only shows what it is told and
// reports what the user does; the session logic connects to its signals and
// drives it through Player_View.
//
// Its outline is re-cut whenever Set_Window_Height changes its height (the
// start-up unroll), so the rounded corners follow the bar as it grows; any
// other resize keeps the outline it has.
class Frm_Player : public QWidget, public Player_View {
    Q_OBJECT
public:
    explicit Frm_Player(QWidget* parent = nullptr);
    ~Frm_Player() override;

    // The design's fixed order of texts: tool tips of Img_Btn(0..12) = texts
    // 1..13, Lbl_Indic_Type_Temps = 101, Lbl_Affichage_Fichier = 103 only
    // while no media is open, Label1 = 104.
    void Apply_Texts(const Text_Table& texts, bool media_open);

    // Player_View
    void Set_Button_Top(int index, int top) override;
    int Button_Top(int index) const override;
    void Show_Volume_Level(int level) override;
    void Set_Time_Text(const QString& text) override;
    QString Time_Text() const override;
    void Set_Time_Mode_Caption(const QString& text) override;
    void Set_Cursor_Left(int pixels) override;
    int Progress_Track_Width() const override;
    void Set_Track_Number_Text(const QString& text) override;
    void Set_Title_Text(const QString& text) override;
    QString Title_Text() const override;
    void Set_Audio_Text(const QString& text) override;
    void Set_Subtitle_Text(const QString& text) override;
    void Set_Audio_Lamp_Visible(bool visible) override;
    void Set_Subtitle_Lamp_Visible(int index, bool visible) override;
    void Set_Stream_Entry_Count(int count) override;
    void Set_Stream_Entry(int k, const QString& caption, bool visible) override;
    void Set_Stream_Checked(int k, bool checked) override;
    void Set_Associated_Entry_Count(int count) override;
    void Set_Associated_Entry(int j, const QString& caption, bool visible) override;
    void Set_Associated_Checked(int j, bool checked) override;
    void Set_Separation_Visible(bool visible) override;
    void Popup_Audio_Menu() override;
    void Bring_To_Front() override;
    void Set_Window_Height(int pixels) override;

    // The controls, for the windows' own checks and tests.
    Picture_Button* Img_Btn(int index) const { return img_btn_.at(std::size_t(index)); }
    Skin_Picture* Img_Vol(int level) const { return img_vol_.at(std::size_t(level)); }
    // The level whose gauge picture is in front of the others.
    int Front_Volume_Level() const;
    Skin_Label* Lbl_Affichage_Temps() const { return lbl_affichage_temps_; }
    Skin_Label* Lbl_Indic_Type_Temps() const { return lbl_indic_type_temps_; }
    Skin_Label* Lbl_Affichage_Fichier() const { return lbl_affichage_fichier_; }
    Skin_Label* Lbl_Affichage_Rang() const { return lbl_affichage_rang_; }
    Skin_Label* Lbl_Affichage_ML() const { return lbl_affichage_ml_; }
    Skin_Label* Lbl_Affichage_Sub() const { return lbl_affichage_sub_; }
    Skin_Label* Lbl_Quitter() const { return lbl_quitter_; }
    Skin_Label* Label1() const { return label1_; }
    Skin_Progress_Track* Lbl_Avancement() const { return lbl_avancement_; }
    Skin_Picture* Img_Avancement() const { return img_avancement_; }
    int Cursor_Left() const { return cursor_left_; }
    Skin_Picture* Img_Temoin_ML() const { return img_temoin_ml_; }
    Skin_Picture* Img_Temoin_ST(int index) const { return img_temoin_st_.at(std::size_t(index)); }
    QMenu* Mnu_Popup() const { return mnu_popup_; }
    QAction* Mnu_Info() const { return mnu_info_; }
    QAction* Mnu_Separation() const { return mnu_separation_; }
    QAction* Mnu_Info2() const { return mnu_info2_; }
    // Entries 1..count; nullptr outside.
    QAction* Mnu_Num_Stream(int k) const;
    QAction* Mnu_Audio_Secondaire(int j) const;
    int Stream_Entry_Count() const { return int(mnu_num_stream_.size()); }
    int Associated_Entry_Count() const { return int(mnu_audio_secondaire_.size()); }

signals:
    void Button_Mouse_Down(int index);
    void Button_Clicked(int index);
    // Character code of the key's text, 0 for a key without text.
    void Key_Pressed(int key_code);
    // X in twips along the progress track (15 to the pixel).
    void Progress_Mouse_Down(int x_twips);
    void Progress_Mouse_Move(int x_twips);
    void Progress_Mouse_Up(int x_twips);
    void Time_Label_Clicked();
    void Window_Double_Clicked();
    void Quit_Clicked();
    void Stream_Entry_Chosen(int k);
    void Associated_Entry_Chosen(int j);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Build_Buttons();
    void Build_Display();
    void Build_Popup_Menu();
    // Creates or removes entries at the end of one menu array so that it
    // holds count entries (at least entry 1).
    void Resize_Entries(std::vector<QAction*>& entries, int count, QAction* before);
    void Entry_Triggered(QAction* entry, bool checked_by_menu);
    void Place_Cursor();

    std::array<Picture_Button*, 13> img_btn_{};
    std::array<Skin_Picture*, 7> img_vol_{};
    Skin_Label* lbl_affichage_temps_ = nullptr;
    Skin_Label* lbl_indic_type_temps_ = nullptr;
    Skin_Label* lbl_affichage_fichier_ = nullptr;
    Skin_Label* lbl_affichage_rang_ = nullptr;
    Skin_Label* lbl_affichage_ml_ = nullptr;
    Skin_Label* lbl_affichage_sub_ = nullptr;
    Skin_Label* lbl_quitter_ = nullptr;
    Skin_Label* label1_ = nullptr;
    Skin_Progress_Track* lbl_avancement_ = nullptr;
    Skin_Picture* img_avancement_ = nullptr;
    Skin_Picture* img_temoin_ml_ = nullptr;
    std::array<Skin_Picture*, 2> img_temoin_st_{};
    int cursor_left_ = 0;

    QMenu* mnu_popup_ = nullptr;
    QAction* mnu_info_ = nullptr;
    QAction* mnu_separation_ = nullptr;
    QAction* mnu_info2_ = nullptr;
    std::vector<QAction*> mnu_num_stream_;
    std::vector<QAction*> mnu_audio_secondaire_;

    QPixmap background_;
};

} // namespace Orvane
