#pragma once

#include <QWidget>

namespace Orvane {

// A progress track of the skin (the Lbl_Avancement control): the groove
// picture, lit from its left end up to the fill position. Mouse positions
// are reported in twips along the track (15 to the pixel), as the seeking
// rule counts them; a drag keeps reporting while the mouse is outside.
class Skin_Progress_Track : public QWidget {
    Q_OBJECT
public:
    static constexpr int Twips_Per_Pixel = 15;

    Skin_Progress_Track(const QString& track_picture, const QString& fill_picture,
                        QWidget* parent = nullptr);

    // How far the lit part reaches, in pixels from the left end.
    void Set_Fill(int pixels);
    int Fill() const { return fill_; }
    // The lit part in percent of the track's width, as assistive
    // technologies read the position.
    int Fill_Percent() const;

signals:
    void Mouse_Down(int x_twips);
    void Mouse_Move(int x_twips);
    void Mouse_Up(int x_twips);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void Render_If_Needed();

    QString track_picture_;
    QString fill_picture_;
    QPixmap track_;
    QPixmap lit_;
    QSize rendered_size_;
    int fill_ = 0;
};

} // namespace Orvane
