#pragma once

#include <functional>
#include <utility>

#include <QEvent>
#include <QKeyEvent>
#include <QObject>

// Sees a widget's events before the widget does; the watch returns true for an event it takes.
class EventWatch : public QObject
{
public:
    EventWatch(QObject* target, std::function<bool(QEvent*)> watch)
        : QObject(target)
        , m_watch(std::move(watch))
    {
        target->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override { return m_watch(event); }

private:
    std::function<bool(QEvent*)> m_watch;
};

// A press of Return or of the keypad's Enter.
inline bool isEnter(const QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<const QKeyEvent*>(event)->key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}
