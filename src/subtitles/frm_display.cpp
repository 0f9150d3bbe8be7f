#include "subtitles/frm_display.h"

#include "ui/video_widget.h"
#include "ui/skin_picture.h"
#include "ui/window_shell.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScreen>

namespace Orvane {

namespace {

int To_Pixels(int twips)
{
    return qRound(double(twips) / Twips_Per_Pixel);
}

} // namespace

Frm_display::Frm_display(QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint),
      Img_Haut_G(new Skin_Picture(QStringLiteral("display_top_left"), this)),
      Img_Haut_Centre(new Skin_Picture(QStringLiteral("display_top_middle"), this)),
      Img_Haut_D(new Skin_Picture(QStringLiteral("display_top_right"), this)),
      Img_Splash(new Skin_Picture(QStringLiteral("display_splash"), this)),
      video_(new Video_Widget(this))
{
    setObjectName(QStringLiteral("Frm_display"));
    setWindowTitle(QStringLiteral("Orvane"));
    Img_Haut_G->setObjectName(QStringLiteral("Img_Haut_G"));
    Img_Haut_Centre->setObjectName(QStringLiteral("Img_Haut_Centre"));
    Img_Haut_D->setObjectName(QStringLiteral("Img_Haut_D"));
    Img_Splash->setObjectName(QStringLiteral("Img_Splash"));
    video_->setObjectName(QStringLiteral("Video_Widget"));
    setFocusPolicy(Qt::StrongFocus);
    video_->hide();
    resize(Audio_Display_Width_Twips / Twips_Per_Pixel, Audio_Display_Height_Twips / Twips_Per_Pixel);
    Lay_Out_Pictures();
}

Frm_display::~Frm_display() = default;

QRect Frm_display::Screen_Area() const
{
    const QScreen* on = screen();
    return on ? on->availableGeometry() : QRect(0, 0, 1024, 768);
}

QRect Frm_display::Display_Geometry() const
{
    const QRect area = Screen_Area();
    const QRect window = geometry();
    return QRect((window.x() - area.x()) * Twips_Per_Pixel, (window.y() - area.y()) * Twips_Per_Pixel,
                 window.width() * Twips_Per_Pixel, window.height() * Twips_Per_Pixel);
}

void Frm_display::Set_Display_Geometry(const QRect& twips)
{
    const QRect area = Screen_Area();
    setGeometry(area.x() + To_Pixels(twips.x()), area.y() + To_Pixels(twips.y()), To_Pixels(twips.width()),
                To_Pixels(twips.height()));
}

QRect Frm_display::Video_Geometry() const
{
    return video_->geometry();
}

void Frm_display::Set_Video_Geometry(const QRect& pixels)
{
    video_->setGeometry(pixels);
}

void Frm_display::Set_Top_Pictures_Visible(bool visible)
{
    top_pictures_visible_ = visible;
    Lay_Out_Pictures();
}

void Frm_display::Set_Video_Visible(bool visible)
{
    video_visible_ = visible;
    Lay_Out_Pictures();
}

QSize Frm_display::Screen_Size() const
{
    return Screen_Area().size() * Twips_Per_Pixel;
}

bool Frm_display::Splash_Visible() const
{
    return !Img_Splash->isHidden();
}

void Frm_display::Lay_Out_Pictures()
{
    const int bar = Video_Top_Pixels;
    // The two ends keep their drawn shape at the bar's height; the middle stretches.
    const auto width_at_bar_height = [bar](const QString& name) {
        const QSize own = Skin_Picture_Size(name);
        return own.isEmpty() ? 0 : qRound(double(own.width()) * bar / own.height());
    };
    const int left_width = std::min(width_at_bar_height(QStringLiteral("display_top_left")), width() / 2);
    const int right_width =
        std::min(width_at_bar_height(QStringLiteral("display_top_right")), width() - left_width);
    Img_Haut_G->setGeometry(0, 0, left_width, bar);
    Img_Haut_D->setGeometry(width() - right_width, 0, right_width, bar);
    Img_Haut_Centre->setGeometry(left_width, 0, std::max(0, width() - left_width - right_width), bar);
    for (Skin_Picture* picture : {Img_Haut_G, Img_Haut_Centre, Img_Haut_D})
        picture->setVisible(top_pictures_visible_);

    Img_Splash->setGeometry(0, bar, width(), std::max(0, height() - bar));
    Img_Splash->setVisible(!video_visible_);
    video_->setVisible(video_visible_);
    video_->raise();
}

void Frm_display::keyPressEvent(QKeyEvent* event)
{
    if (key_handler_)
        key_handler_(Key_Press_Code(*event));
    event->accept();
}

void Frm_display::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && event->position().y() < Video_Top_Pixels) {
        Drag_Window(this);
        event->accept();
        return;
    }
    QWidget::mousePressEvent(event);
}

void Frm_display::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    Lay_Out_Pictures();
}

void Frm_display::paintEvent(QPaintEvent*)
{
    // Behind the pictures: black, as around a film.
    QPainter(this).fillRect(rect(), Qt::black);
}

} // namespace Orvane
