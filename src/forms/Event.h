#pragma once

#include <functional>
#include <utility>

namespace rovanta {

/// Something that happens to a control; the screen wires one routine to it.
template <class... Arguments>
class EventOf {
public:
    template <class Handler>
    EventOf& operator=(Handler routine)
    {
        handler = std::move(routine);
        return *this;
    }

    bool IsWired() const { return static_cast<bool>(handler); }

    void Fire(Arguments... arguments) const
    {
        if (handler)
            handler(std::forward<Arguments>(arguments)...);
    }

private:
    std::function<void(Arguments...)> handler;
};

using Event = EventOf<>;

}
