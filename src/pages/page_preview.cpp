#include "pages/page_preview.h"

#include "controls/image_frame.h"
#include "look/look.h"
#include "pages/page_image.h"

#include <QEvent>
#include <QScreen>
#include <QVBoxLayout>

#include <chrono>

using namespace std::chrono_literals;

static constexpr QSize largest(480, 680);
static constexpr QSize smallest(100, 100); // a smaller one shows nothing
static constexpr QSize paper(210, 297); // the shape of what cannot be shown
static constexpr int gap = 8; // to the window
static constexpr int outline = 1;

PagePreview::PagePreview(QWidget *window)
    : QWidget(window, Qt::ToolTip | Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus)
    , frame_(new ImageFrame(this))
{
    setObjectName("preview");
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    QPalette colours = palette();
    colours.setColor(QPalette::Window, lineColour);
    setPalette(colours);
    frame_->setFocusPolicy(Qt::NoFocus);
    frame_->setAutoFillBackground(true);
    frame_->setPalette(window->palette());
    frame_->setAccessibleName("Preview");
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(outline, outline, outline, outline);
    layout->addWidget(frame_);
    soon_.setSingleShot(true);
    soon_.setInterval(40ms);
    connect(&soon_, &QTimer::timeout, this, &PagePreview::showNow);
    window->installEventFilter(this);
}

void PagePreview::showFile(const QString &path)
{
    path_ = path;
    soon_.start();
}

// To the right of the window, or to its left where there is more room.
QRect PagePreview::placeBeside() const
{
    const QRect window = parentWidget()->frameGeometry();
    const QRect room = screen()->availableGeometry();
    const int right = room.right() - window.right() - gap, left = window.left() - room.left() - gap;
    const bool isRight = right >= qMin(left, largest.width());
    const QSize page = pageSize(path_);
    const QSize most = largest.boundedTo({isRight ? right : left, room.height()});
    const QSize size = (page.isEmpty() ? paper : page).scaled(most, Qt::KeepAspectRatio);
    const int top = qBound(room.top(), window.top(), room.bottom() + 1 - size.height());
    return {{isRight ? window.right() + 1 + gap : window.left() - gap - size.width(), top}, size};
}

void PagePreview::showNow()
{
    const QRect place = placeBeside();
    if (!parentWidget()->isVisible() || place.width() < smallest.width()
        || place.height() < smallest.height())
        return disappear();
    setGeometry(place);
    layout()->activate();
    frame_->showFile(path_);
    show();
}

void PagePreview::disappear()
{
    soon_.stop();
    hide();
}

bool PagePreview::eventFilter(QObject *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::WindowActivate:
    case QEvent::Move:
        if (!path_.isEmpty())
            soon_.start();
        break;
    case QEvent::WindowDeactivate:
    case QEvent::Hide:
        disappear();
        break;
    default:
        break;
    }
    return false;
}
