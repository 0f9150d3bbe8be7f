#include "subtitles/frm_subtitle.h"

#include "base/reader_error.h"
#include "config/settings.h"
#include "config/subtitle_color.h"
#include "language/text_table.h"
#include "subtitles/subtitle_shape.h"
#include "subtitles/subtitle_table.h"
#include "ui/message_box.h"
#include "ui/window_shell.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QWindow>

namespace Orvane {

namespace {

// The band behind the letters in opaque mode, and the edge around them in
// transparent mode.
const QColor Band_Color(0x10, 0x14, 0x18);
const QColor Edge_Color(Qt::black);
constexpr int Band_Padding = 8;

enum Color_Error_Text : int16_t {
    Config_Error_Title = 1010,
    Wrong_Line = 1006,
    Error_Number = 1008,
};

} // namespace

Frm_Subtitle::Frm_Subtitle(const Settings& settings, const Text_Table& texts, const Subtitle_Table& table,
                           QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::Tool
                          | Qt::WindowDoesNotAcceptFocus | Qt::WindowTransparentForInput),
      settings_(settings), texts_(texts), table_(table), label_(new QLabel(this))
{
    setObjectName(QStringLiteral("Frm_Subtitle"));
    label_->setObjectName(QStringLiteral("Lbl_Subtitle"));
    label_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    label_->setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    Apply_Shape({});
}

Frm_Subtitle::~Frm_Subtitle()
{
    QObject::disconnect(screen_connection_);
}

void Frm_Subtitle::Show()
{
    Apply_Settings();
    Show_Subtitle(QString(), QString(), 1);
    show();
    raise();
    shown_ = true;
}

void Frm_Subtitle::Unload()
{
    Show_Subtitle(QString(), QString(), 1);
    hide();
    shown_ = false;
}

void Frm_Subtitle::Apply_Settings()
{
    transparent_ = settings_.Subtitle_Transparent;
    Resolve_Color();
    QPalette palette = label_->palette();
    palette.setColor(QPalette::WindowText, color_);
    label_->setPalette(palette);
    label_->setVisible(!transparent_);
    Place_On_Screen();
    Draw_Lines();
}

void Frm_Subtitle::Resolve_Color()
{
    try {
        color_ = Subtitle_Qt_Color(Subtitle_Color_Number(settings_.Subtitle_Color));
    } catch (const Reader_Error& error) {
        // A colour that is no number fails where it is used: the user is
        // told once, and the letters stay readable in white.
        color_ = Qt::white;
        if (!color_warned_) {
            color_warned_ = true;
            Message_Box(texts_.Get_Text(Config_Error_Title) + u'\n' + texts_.Get_Text(Wrong_Line)
                        + QStringLiteral(">Couleur") + u'\n' + texts_.Get_Text(Error_Number)
                        + QString::number(error.Number()) + QStringLiteral(", ") + error.Description());
        }
    }
}

QScreen* Frm_Subtitle::Target_Screen() const
{
    QScreen* screen = screen_source_ ? screen_source_() : nullptr;
    return screen ? screen : QGuiApplication::primaryScreen();
}

void Frm_Subtitle::Follow_Screen(QScreen* screen)
{
    if (screen == followed_screen_)
        return;
    QObject::disconnect(screen_connection_);
    followed_screen_ = screen;
    if (screen)
        screen_connection_ = connect(screen, &QScreen::availableGeometryChanged, this,
                                     [this] { Place_On_Screen(); });
}

void Frm_Subtitle::Place_On_Screen()
{
    QScreen* screen = Target_Screen();
    Follow_Screen(screen);
    const QRect area = screen ? screen->availableGeometry() : QRect(0, 0, 1024, 768);
    const QFont settings_font = Subtitle_Shape::Subtitle_Font(settings_, settings_.Subtitle_Font_Size);
    const int height = Subtitle_Shape::Window_Height(settings_font, area.height());
    if (screen && windowHandle())
        windowHandle()->setScreen(screen);
    setGeometry(area.left(), area.top() + area.height() - height, area.width(), height);
    label_->setGeometry(0, 0, area.width(), height);
}

void Frm_Subtitle::Show_Subtitle(const QString& line1, const QString& line2, int n)
{
    line1_ = line1;
    line2_ = line2;
    entry_ = n;
    Draw_Lines();
    if (isVisible() && !shape_.isEmpty())
        raise();  // above a display window that went full screen since
}

void Frm_Subtitle::Draw_Lines()
{
    const int size = Subtitle_Shape::Entry_Size(table_, entry_, settings_.Subtitle_Font_Size);
    font_ = Subtitle_Shape::Subtitle_Font(settings_, size);
    if (transparent_) {
        const Subtitle_Shape::Left_Edges left = Subtitle_Shape::Entry_Left_Edges(table_, entry_);
        outline_ = Subtitle_Shape::Text_Outline(font_, line1_, left.left1, line2_, left.left2);
        Apply_Shape(Subtitle_Shape::Build_Text_Region(outline_, Subtitle_Shape::Edge_Width));
    } else {
        outline_ = QPainterPath();
        label_->setFont(font_);
        label_->setText(Subtitle_Shape::Label_Text(line1_, line2_));
        Apply_Shape(Opaque_Band());
    }
    update();
}

QRegion Frm_Subtitle::Opaque_Band() const
{
    if (line1_.trimmed().isEmpty() && line2_.trimmed().isEmpty())
        return {};
    const QRect text = QFontMetrics(font_).boundingRect(rect(), int(label_->alignment()), label_->text());
    return QRegion(text.adjusted(-2 * Band_Padding, -Band_Padding / 2, 2 * Band_Padding, Band_Padding / 2)
                   & rect());
}

void Frm_Subtitle::Apply_Shape(const QRegion& shape)
{
    shape_ = shape;
    // An empty mask would mean no mask at all: nothing shown is a single
    // pixel outside the window.
    setMask(shape.isEmpty() ? QRegion(-1, -1, 1, 1) : shape);
}

void Frm_Subtitle::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (!transparent_) {
        painter.fillRect(rect(), Band_Color);
        return;
    }
    painter.fillRect(rect(), Edge_Color);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(outline_, color_);
}

void Frm_Subtitle::keyPressEvent(QKeyEvent* event)
{
    if (key_handler_)
        key_handler_(Key_Press_Code(*event));
}

} // namespace Orvane
