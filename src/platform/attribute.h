#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <utility>

namespace inin {

/// A control or a form with attributes. Its watchers, such as the view that mirrors it, are notified after each change.
class Observable {
public:
    Observable() = default;
    Observable(const Observable &) = delete;
    Observable &operator=(const Observable &) = delete;
    virtual ~Observable() = default;

    void watch(std::function<void()> watcher) { m_watchers.push_back(std::move(watcher)); }
    void notify() const
    {
        // By index over a deque, because a watcher may add another one while it runs.
        for (std::size_t i = 0; i < m_watchers.size(); ++i) m_watchers[i]();
    }

private:
    std::deque<std::function<void()>> m_watchers;
};

/// One attribute of an Observable. Assigning the value that it already has does nothing. Any other assignment notifies
/// the watchers and then runs `onAssigned`, which fires the control's event. An exception from `check` rejects the
/// value.
template <class T> class Attribute {
public:
    Attribute(const Observable &owner, T value) : m_owner(owner), m_value(std::move(value)) {}
    Attribute(const Attribute &) = delete;
    Attribute &operator=(const Attribute &other) { return *this = other.m_value; }
    ~Attribute() = default;

    Attribute &operator=(T value)
    {
        if (m_value == value) return *this;
        if (check) check(value);
        assignQuietly(std::move(value));
        if (onAssigned) onAssigned();
        return *this;
    }
    /// Notifies the watchers, but runs neither `check` nor `onAssigned`.
    void assignQuietly(T value)
    {
        m_value = std::move(value);
        m_owner.notify();
    }
    /// For callers to which the conversion operator does not apply, such as templates.
    [[nodiscard]] const T &get() const { return m_value; }
    operator const T &() const { return m_value; }

    std::function<void(const T &value)> check;
    std::function<void()> onAssigned;

private:
    const Observable &m_owner;
    T m_value;
};

} // namespace inin
