#pragma once

#include "config/config_form.h"

#include <QPixmap>
#include <QWidget>
#include <array>
#include <cstdint>
#include <functional>
#include <memory>

class QLabel;

namespace Orvane {

class CdlgEx;
class Config_Language_List;
class Option_Pair;
class Picture_Button;
class Skin_Label;
class Text_Table;
struct Settings;

// Frm_Config: the skinned configuration window. It edits a Config_Form
// loaded from the settings when it opens; OK copies it back through
// Confirm_Config_Form, Cancel and Lbl_Quiter close without applying. Either
// way the window then unloads itself (it is made anew at each opening).
class Frm_Config : public QWidget {
    Q_OBJECT
public:
    static constexpr int Corner = 30;
    static constexpr int Button_Top = 306;   // Img_Btn at rest; 307 pressed
    static constexpr int Caption_Top = 310;  // Lbl_OK at rest; 311 pressed

    Frm_Config(Settings& settings, const Text_Table& texts, CdlgEx& dialog, Config_Confirm_Actions actions,
               std::function<bool()> subtitles_shown, QWidget* parent = nullptr);
    ~Frm_Config() override;

    void Set_Key_Forwarder(std::function<void(int key_code)> forward) { forward_key_ = std::move(forward); }

    // The captions in their fixed order, then the window's other texts.
    void Apply_Texts(const Text_Table& texts);
    static const std::array<int16_t, 23>& Caption_Numbers();

    const Config_Form& Form() const { return form_; }
    // The button actions: 0 confirms, 1 closes without applying.
    void Button_Released(int index);

    Picture_Button* Img_Btn(int index) const { return img_btn_[std::size_t(index)]; }
    Skin_Label* Lbl_OK(int index) const { return lbl_ok_[std::size_t(index)]; }
    Skin_Label* Lbl_Quiter() const { return lbl_quiter_; }
    Skin_Label* Lbl_ST() const { return lbl_st_; }
    Skin_Label* Lbl_CD1() const { return lbl_cd1_; }
    Skin_Label* Lbl_CD2() const { return lbl_cd2_; }
    Skin_Label* Lbl_CD(int which) const { return which == 1 ? lbl_cd_value_[0] : lbl_cd_value_[1]; }
    Skin_Label* Lbl_Nom_Police() const { return lbl_nom_police_; }
    Skin_Label* Lbl_Taille() const { return lbl_taille_; }
    Skin_Label* Lbl_Style() const { return lbl_style_; }
    QLabel* Lbl_Ex_Police() const { return lbl_ex_police_; }
    Skin_Label* Lbl_Couleur_ST() const { return lbl_couleur_st_; }
    Option_Pair* Img_Option_Sub() const { return option_sub_; }
    Option_Pair* Img_Option_Playlist1() const { return option_playlist_; }
    Option_Pair* Img_Option_Param1() const { return option_param_; }
    Config_Language_List& Languages() const { return *languages_; }
    Skin_Label* Caption(int16_t number) const;

signals:
    // After OK or Cancel: the window is to be thrown away.
    void Unloaded();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Build_Subtitle_Pane();
    void Build_Other_Panes();
    void Build_Buttons();
    // An option pair at a place with its caption (captions_[caption]) beside
    // it, both editing one field of the form.
    Option_Pair* Add_Option(const QString& name, QPoint at, int caption, bool Config_Form::*field);
    void Show_Form();
    void Show_Font_Sample();
    void Show_Drives();
    void Unload();

    Settings& settings_;
    const Text_Table& texts_;
    CdlgEx& dialog_;
    Config_Confirm_Actions actions_;
    std::function<bool()> subtitles_shown_;
    std::function<void(int)> forward_key_;
    Config_Form form_;

    std::array<Picture_Button*, 2> img_btn_{};
    std::array<Skin_Label*, 2> lbl_ok_{};
    Skin_Label* lbl_quiter_ = nullptr;
    Skin_Label* lbl_st_ = nullptr;
    Skin_Label* lbl_nom_police_ = nullptr;
    Skin_Label* lbl_taille_ = nullptr;
    Skin_Label* lbl_style_ = nullptr;
    QLabel* lbl_ex_police_ = nullptr;
    Skin_Label* lbl_couleur_st_ = nullptr;
    Skin_Label* lbl_cd1_ = nullptr;
    Skin_Label* lbl_cd2_ = nullptr;
    std::array<Skin_Label*, 2> lbl_cd_value_{};
    Option_Pair* option_sub_ = nullptr;
    Option_Pair* option_playlist_ = nullptr;
    Option_Pair* option_param_ = nullptr;
    Config_Language_List* languages_ = nullptr;
    std::array<Skin_Label*, 23> captions_{};
    QPixmap background_;  // in the order of Caption_Numbers()
};

} // namespace Orvane
