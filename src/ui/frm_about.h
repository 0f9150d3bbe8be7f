#pragma once

#include <QWidget>

namespace Orvane {

class Picture_Button;
class Skin_Label;

// Frm_About: the program's picture, a fixed text naming it and its version.
// Its caption and fixed text come from the language file. It opens in the
// middle of its screen and closes on a click on the picture, on the text or
// on its background.
class Frm_About : public QWidget {
    Q_OBJECT
public:
    static constexpr int Corner = 40;

    Frm_About(const QString& caption, const QString& fixed_text, QWidget* parent = nullptr);

    Picture_Button* Image1() const { return image1_; }
    Skin_Label* Label1() const { return label1_; }
    Skin_Label* Lbl_Version() const { return lbl_version_; }

protected:
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    Picture_Button* image1_;
    Skin_Label* label1_;
    Skin_Label* lbl_version_;
};

} // namespace Orvane
