#pragma once

#include "media/display_layout.h"

#include <QWidget>
#include <functional>

namespace Orvane {

class Skin_Picture;
class Video_Widget;

// The display window: a frameless skinned window whose 20 px top bar
// (Img_Haut_G, the stretched Img_Haut_Centre, Img_Haut_D) drags it, with the
// picture of the open media below (the Video_Widget at y = 20 px) and the
// splash picture in its place while no picture is shown. Its geometry is
// laid out by the display layout routines through Display_Window, in twips
// relative to the available area of its screen.
class Frm_display : public QWidget, public Display_Window {
    Q_OBJECT
public:
    explicit Frm_display(QWidget* parent = nullptr);
    ~Frm_display() override;

    Video_Widget* Video() const { return video_; }
    // The player's keyboard dispatcher: receives the first character of
    // each key's text (0 for a key without text).
    void Set_Key_Handler(std::function<void(int key_code)> handler) { key_handler_ = std::move(handler); }

    QRect Display_Geometry() const override;
    void Set_Display_Geometry(const QRect& twips) override;
    QRect Video_Geometry() const override;
    void Set_Video_Geometry(const QRect& pixels) override;
    void Set_Top_Pictures_Visible(bool visible) override;
    void Set_Video_Visible(bool visible) override;
    QSize Screen_Size() const override;

    bool Top_Pictures_Visible() const { return top_pictures_visible_; }
    bool Splash_Visible() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Lay_Out_Pictures();
    QRect Screen_Area() const;

    Skin_Picture* Img_Haut_G;
    Skin_Picture* Img_Haut_Centre;
    Skin_Picture* Img_Haut_D;
    Skin_Picture* Img_Splash;
    Video_Widget* video_;
    std::function<void(int)> key_handler_;
    bool top_pictures_visible_ = true;
    bool video_visible_ = false;
};

} // namespace Orvane
