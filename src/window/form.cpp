#include "window/form.h"

#include "look/look.h"
#include "window/bring_forward.h"

#include <QAccessibleWidget>
#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QShortcut>
#include <QStyle>
#include <QVBoxLayout>
#include <QWidget>

static constexpr Qt::WindowFlags fixedBorder = Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint
    | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint | Qt::MSWindowsFixedSizeDialogHint;

// Lets a screen reader know which widgets are windows.
static QAccessibleInterface *windowInterface(const QString &className, QObject *object)
{
    auto *widget = qobject_cast<QWidget *>(object);
    return widget && className == QLatin1String("QWidget") && widget->isWindow()
        ? new QAccessibleWidget(widget, QAccessible::Window)
        : nullptr;
}

Form::Form(FormShape shape)
    : shape_(std::move(shape))
{
    static const bool installed = (QAccessible::installFactory(windowInterface), true);
    Q_UNUSED(installed)
}

Form::~Form()
{
    delete window_;
}

void Form::show()
{
    if (!isLoaded())
        create();
    bringForward(window_);
}

void Form::hide()
{
    if (isLoaded())
        window_->hide();
}

void Form::unload()
{
    if (!isLoaded())
        return;
    handlers_.reset();
    window_->removeEventFilter(this);
    window_->hide();
    window_->deleteLater();
    window_.clear();
}

void Form::create()
{
    handlers_ = std::make_unique<QObject>();
    window_ = new QWidget(nullptr, fixedBorder);
    window_->setObjectName(shape_.name);
    window_->setWindowTitle(shape_.caption);
    window_->installEventFilter(this);

    auto *client = new QWidget(window_);
    client->setFixedSize(pixels(shape_.width), pixels(shape_.height));
    auto *layout = new QVBoxLayout(window_);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(client);

    build(ControlMaker(client));
    moveOntoScreen();
    load();
}

// Puts the client area where the shape says, or as near to it as keeps the window on the screen.
void Form::moveOntoScreen()
{
    if (!shape_.position)
        return;
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const QSize size = window_->layout()->totalSizeHint();
    const int titleBar = window_->style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const int aboveClient = size.height() - pixels(shape_.height);
    const QPoint wanted(pixels(shape_.position->x()), pixels(shape_.position->y()) - aboveClient);
    const int left = qMin(wanted.x(), screen.right() + 1 - size.width());
    const int top = qMin(wanted.y(), screen.bottom() + 1 - size.height());
    window_->setGeometry({{qMax(left, screen.left()), qMax(top, screen.top() + titleBar)}, size});
}

void Form::onKey(const QKeySequence &key, const std::function<void()> &handler, QWidget *control)
{
    auto *shortcut = control ? new QShortcut(key, control) : new QShortcut(key, window_);
    if (control)
        shortcut->setContext(Qt::WidgetShortcut);
    on(shortcut, &QShortcut::activated, handler);
}

void Form::setTabOrder(const QList<QWidget *> &order)
{
    QWidget *previous = nullptr;
    for (QWidget *next : order) {
        if (previous)
            QWidget::setTabOrder(previous, next);
        previous = next;
    }
    order.first()->setFocus();
}

bool Form::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != window_ || event->type() != QEvent::Close)
        return false;
    event->ignore();
    closeBox();
    return true;
}
