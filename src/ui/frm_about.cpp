#include "ui/frm_about.h"

#include "ui/picture_button.h"
#include "ui/skin_label.h"
#include "ui/skin_palette.h"
#include "ui/window_shell.h"

#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

namespace Orvane {

namespace {
constexpr QSize Window_Size(360, 232);
constexpr QRect Image1_Place(0, 0, 360, 150);
constexpr QRect Label1_Place(20, 162, 320, 20);
constexpr QRect Version_Place(20, 190, 320, 20);
const QString Version = QStringLiteral("0.5b");
} // namespace

Frm_About::Frm_About(const QString& caption, const QString& fixed_text, QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint),
      image1_(new Picture_Button(QStringLiteral("about_picture"), this)),
      label1_(new Skin_Label(fixed_text, this)),
      lbl_version_(new Skin_Label(Version, this))
{
    setObjectName(QStringLiteral("Frm_About"));
    setWindowTitle(caption);
    setAttribute(Qt::WA_TranslucentBackground, false);
    setFixedSize(Window_Size);

    image1_->setObjectName(QStringLiteral("Image1"));
    image1_->Place(Image1_Place);
    image1_->setAccessibleName(fixed_text);
    label1_->setObjectName(QStringLiteral("Label1"));
    label1_->setGeometry(Label1_Place);
    label1_->setAlignment(Qt::AlignCenter);
    label1_->setFont(Skin_Palette::Label_Font(13, true));
    label1_->Set_Colors(Skin_Palette::Panel_Text);
    lbl_version_->setObjectName(QStringLiteral("Lbl_Version"));
    lbl_version_->setGeometry(Version_Place);
    lbl_version_->setAlignment(Qt::AlignCenter);
    lbl_version_->setFont(Skin_Palette::Time_Font(13));
    lbl_version_->Set_Colors(Skin_Palette::Accent);

    // The picture and the text close the window like the background does.
    connect(image1_, &Picture_Button::Clicked, this, [this](Qt::MouseButton button) {
        if (button == Qt::LeftButton)
            close();
    });
    label1_->Set_Clickable(true);
    label1_->setCursor(Qt::ArrowCursor);
    connect(label1_, &Skin_Label::Clicked, this, &QWidget::close);

    Shape_Window(this, Corner);
}

void Frm_About::showEvent(QShowEvent* event)
{
    lbl_version_->setText(Version);
    // Placed before the window system maps it, so it appears centred at once.
    if (const QScreen* shown_on = screen()) {
        const QRect area = shown_on->availableGeometry();
        move(area.left() + (area.width() - width()) / 2, area.top() + (area.height() - height()) / 2);
    }
    Shape_Window(this, Corner);
    QWidget::showEvent(event);
}

void Frm_About::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QLinearGradient face(0, 0, 0, height());
    face.setColorAt(0.0, QColor(0x3b, 0x40, 0x48));
    face.setColorAt(0.6, QColor(0x26, 0x2a, 0x30));
    face.setColorAt(1.0, QColor(0x1b, 0x1e, 0x23));
    painter.setPen(QPen(QColor(0x08, 0x09, 0x0b), 1));
    painter.setBrush(face);
    painter.drawRoundedRect(area, Corner / 2.0, Corner / 2.0);
    // An engraved rule between the picture and the texts.
    const int rule_y = Image1_Place.bottom() + 4;
    painter.setPen(QColor(0, 0, 0, 150));
    painter.drawLine(QPointF(40, rule_y + 0.5), QPointF(width() - 40, rule_y + 0.5));
    painter.setPen(QColor(255, 255, 255, 22));
    painter.drawLine(QPointF(40, rule_y + 1.5), QPointF(width() - 40, rule_y + 1.5));
}

void Frm_About::mousePressEvent(QMouseEvent* event)
{
    event->accept();
}

void Frm_About::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        close();
}

} // namespace Orvane
