#pragma once

#include <QKeySequence>
#include <QList>
#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>
#include <optional>

#include "controls/control_maker.h"

class QWidget;

// What a window has before it has controls.
struct FormShape {
    QString name; // objectName
    QString caption;
    int width = 0; // of the client area, in twips
    int height = 0;
    std::optional<QPoint> position = {}; // of the client area on the screen, in twips; else the system's
};

// One of the program's windows: one object for the life of the process, whose controls come and go.
// A hidden window keeps its controls and comes back as it was; an unloaded one loses them, and the next
// showing builds them afresh and runs the load steps again. What must outlive the controls is a member of
// the class that derives from this one.
class Form : public QObject
{
    Q_OBJECT
public:
    explicit Form(FormShape shape);
    ~Form() override;

    // Builds the controls and runs the load steps where there are none, and brings the window forward.
    void show();
    void hide();
    // Safe from inside a handler of one of its own controls; their pointers are not to be used after it.
    void unload();

    bool isLoaded() const { return !window_.isNull(); }

protected:
    // Makes the controls in the client area and connects their handlers.
    virtual void build(ControlMaker make) = 0;
    // The load steps; they run with all controls at their first values, before the window appears.
    virtual void load() { }
    // The close box of the title bar was used.
    virtual void closeBox() { unload(); }

    // Connects a handler for as long as the controls live.
    template <typename Sender, typename Signal, typename Handler>
    void on(Sender *sender, Signal signal, Handler handler)
    {
        connect(sender, signal, handlers_.get(), handler);
    }
    // Runs the handler on a key anywhere in the window, or only while `control` has the focus.
    void onKey(const QKeySequence &key, const std::function<void()> &handler, QWidget *control = nullptr);

    // The order of the Tab key; the first one has the focus when the window appears.
    void setTabOrder(const QList<QWidget *> &order);

    // Null while there are no controls.
    QWidget *window() const { return window_; }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void create();
    void moveOntoScreen();

    const FormShape shape_;
    QPointer<QWidget> window_;
    std::unique_ptr<QObject> handlers_; // the context of all connections to handlers
};
