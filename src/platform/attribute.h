#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <utility>

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
        // By index over a deque: a watcher may add another one while it is told.
        for (std::size_t i = 0; i < m_watchers.size(); ++i) m_watchers[i]();
    }

private:
    std::deque<std::function<void()>> m_watchers;
};

/// One attribute of an Observable. Assigning a value that it already has does nothing; any other assignment tells the
/// watchers and then runs `onAssigned`, which is how a control fires its event. What `check` throws refuses the value
/// before anything changes.
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
    /// Tells the watchers, but runs neither `check` nor `onAssigned`.
    void assignQuietly(T value)
    {
        m_value = std::move(value);
        m_owner.notify();
    }
    /// The value without a conversion in the way.
    [[nodiscard]] const T &get() const { return m_value; }
    operator const T &() const { return m_value; }

    std::function<void(const T &value)> check;
    std::function<void()> onAssigned;

private:
    const Observable &m_owner;
    T m_value;
};

} // namespace inin
