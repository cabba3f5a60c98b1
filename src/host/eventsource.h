#pragma once

#include <QList>

namespace tarvello::host {

// The subscribers to one object's events. An event reaches every subscriber in the order
// they subscribed, and each one sees what the previous ones left in the by-reference
// arguments, so a cancel flag set by one module is seen by the next and by the raiser.
// A subscriber may subscribe or unsubscribe while an event is being delivered: one that
// unsubscribes does not get the event any more, one that subscribes gets the next event.
template <class Sink>
class EventSource {
public:
    void subscribe(Sink* sink)
    {
        if (sink && !m_sinks.contains(sink))
            m_sinks.append(sink);
    }
    void unsubscribe(Sink* sink) { m_sinks.removeAll(sink); }
    bool isSubscribed(const Sink* sink) const { return m_sinks.contains(sink); }
    qsizetype subscriberCount() const { return m_sinks.size(); }

    template <class... Params, class... Args>
    void raise(void (Sink::*handler)(Params...), Args&&... args)
    {
        forEach([&](Sink& sink) { (sink.*handler)(args...); });
    }

    // Hands each subscriber to deliver(), in the order and with the care raise() takes.
    template <class Deliver>
    void forEach(Deliver&& deliver)
    {
        const QList<Sink*> sinks = m_sinks;
        for (Sink* sink : sinks) {
            if (m_sinks.contains(sink))
                deliver(*sink);
        }
    }

private:
    QList<Sink*> m_sinks; // Not owned.
};

} // namespace tarvello::host
