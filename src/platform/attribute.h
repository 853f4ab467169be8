#pragma once

#include <functional>
#include <utility>
#include <vector>

namespace inin {

/// Something whose attributes are watched: a control or a form. Whoever mirrors it is told after each change.
class Observable {
public:
    Observable() = default;
    Observable(const Observable &) = delete;
    Observable &operator=(const Observable &) = delete;
    virtual ~Observable() = default;

    void watch(std::function<void()> watcher) { m_watchers.push_back(std::move(watcher)); }
    void notify() const
    {
        for (const auto &watcher : m_watchers) watcher();
    }

private:
    std::vector<std::function<void()>> m_watchers;
};

/// One attribute of an Observable. Assigning a value that it already has does nothing; any other assignment tells the
/// watchers and then runs `onAssigned`, which is how a control fires its event.
template <class T> class Attribute {
public:
    Attribute(const Observable &owner, T value) : m_owner(owner), m_value(std::move(value)) {}
    Attribute(const Attribute &) = delete;
    Attribute &operator=(const Attribute &other) { return *this = other.m_value; }
    ~Attribute() = default;

    Attribute &operator=(T value)
    {
        if (m_value == value) return *this;
        m_value = std::move(value);
        m_owner.notify();
        if (onAssigned) onAssigned();
        return *this;
    }
    /// The value without a conversion in the way.
    [[nodiscard]] const T &get() const { return m_value; }
    operator const T &() const { return m_value; }

    std::function<void()> onAssigned;

private:
    const Observable &m_owner;
    T m_value;
};

} // namespace inin
