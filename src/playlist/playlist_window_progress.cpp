#include "playlist/playlist_window_progress.h"

#include "ui/skin_controls.h"
#include "ui/skin_label.h"
#include "ui/skin_palette.h"

#include <QMouseEvent>
#include <QPainter>

namespace Orvane {

namespace {
constexpr QRect Bar_Place(20, 34, 380, 6);
} // namespace

Playlist_Window_Progress::Playlist_Window_Progress(QWidget* parent)
    : QWidget(parent),
      caption_(Make_Label(this, QStringLiteral("Lbl_Progression"), QRect(20, 8, 230, 20), 12,
                          Skin_Palette::Panel_Text)),
      count_(Make_Label(this, QStringLiteral("Lbl_Compte"), QRect(250, 8, 80, 20), 12, Skin_Palette::Accent)),
      cancel_(Make_Label(this, QStringLiteral("Lbl_Annuler"), QRect(330, 8, 70, 20), 12, Skin_Palette::Panel_Text,
                         true))
{
    count_->setFont(Skin_Palette::Time_Font(12));
    count_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    cancel_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    cancel_->Set_Clickable(true);
    cancel_->Set_Colors(Skin_Palette::Panel_Text, Skin_Palette::Accent);
    connect(cancel_, &Skin_Label::Clicked, this, &Playlist_Window_Progress::Cancel_Requested);
}

void Playlist_Window_Progress::Set_Texts(const QString& cancel_caption)
{
    cancel_->setText(cancel_caption);
}

void Playlist_Window_Progress::Start(const QString& caption, int total)
{
    caption_->setText(caption);
    total_ = total;
    Set_Done(0);
}

void Playlist_Window_Progress::Set_Done(int done)
{
    done_ = done;
    count_->setText(Progress_Text());
    update();
}

QString Playlist_Window_Progress::Progress_Text() const
{
    return QStringLiteral("%1 / %2").arg(done_).arg(total_);
}

void Playlist_Window_Progress::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF groove = QRectF(Bar_Place).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(QColor(0, 0, 0, 160));
    painter.setBrush(QColor(0x0b, 0x10, 0x15));
    painter.drawRoundedRect(groove, 3, 3);
    if (total_ > 0 && done_ > 0) {
        QRectF filled = groove.adjusted(1, 1, -1, -1);
        filled.setWidth(filled.width() * std::min(1.0, double(done_) / total_));
        QLinearGradient glow(filled.topLeft(), filled.bottomLeft());
        glow.setColorAt(0, Skin_Palette::Accent.lighter(125));
        glow.setColorAt(1, Skin_Palette::Accent.darker(130));
        painter.setPen(Qt::NoPen);
        painter.setBrush(glow);
        painter.drawRoundedRect(filled, 2, 2);
    }
}

void Playlist_Window_Progress::mousePressEvent(QMouseEvent* event)
{
    // The strip is part of the window's surface: pressing it drags the window.
    event->ignore();
}

} // namespace Orvane
