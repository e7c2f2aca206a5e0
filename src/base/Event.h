#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace pellmark {

namespace detail {

template <class... Args>
struct Handler {
    std::function<void(Args...)> call;
    bool connected = true;
    int muted = 0;
};

template <class... Args>
struct HandlerList {
    using Handlers = std::vector<std::shared_ptr<Handler<Args...>>>;
    std::shared_ptr<const Handlers> current = std::make_shared<Handlers>();
};

}  // namespace detail

/// Keeps one handler connected to an event; disconnects when it dies or is reset. May outlive the event.
class Subscription {
  public:
    Subscription() = default;
    Subscription(std::function<void()> disconnect, int* muted, std::shared_ptr<void> keepAlive)
        : disconnect_(std::move(disconnect)), muted_(muted), keepAlive_(std::move(keepAlive)) {}
    Subscription(Subscription&& other) noexcept { *this = std::move(other); }
    Subscription& operator=(Subscription&& other) noexcept {
        if (this != &other) {
            reset();
            disconnect_ = std::exchange(other.disconnect_, nullptr);
            muted_ = std::exchange(other.muted_, nullptr);
            keepAlive_ = std::move(other.keepAlive_);
        }
        return *this;
    }
    ~Subscription() { reset(); }

    void reset() {
        if (auto disconnect = std::exchange(disconnect_, nullptr)) disconnect();
        muted_ = nullptr;
        keepAlive_.reset();
    }

    /// While the returned guard lives the handler is not called: a peer that writes its own model holds
    /// one so that it does not hear its echo.
    [[nodiscard]] std::shared_ptr<void> mute() {
        if (muted_ == nullptr) return nullptr;
        ++*muted_;
        return {keepAlive_.get(), [counter = muted_, alive = keepAlive_](void*) { --*counter; }};
    }

  private:
    std::function<void()> disconnect_;
    int* muted_ = nullptr;
    std::shared_ptr<void> keepAlive_;
};

/// A copy-on-write list of observers: a handler may subscribe, unsubscribe or destroy the sender while the
/// event is being raised. Handlers run in the order of their subscription. Not for use from two threads.
template <class... Args>
class Event {
  public:
    Event() = default;
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    [[nodiscard]] Subscription subscribe(std::function<void(Args...)> call) {
        using List = detail::HandlerList<Args...>;
        auto handler = std::make_shared<detail::Handler<Args...>>();
        handler->call = std::move(call);
        auto grown = std::make_shared<typename List::Handlers>(*list_->current);
        grown->push_back(handler);
        list_->current = std::move(grown);
        auto disconnect = [weakList = std::weak_ptr<List>(list_), handler] {
            handler->connected = false;
            if (auto list = weakList.lock()) {
                auto rest = std::make_shared<typename List::Handlers>(*list->current);
                rest->erase(std::remove(rest->begin(), rest->end(), handler), rest->end());
                list->current = std::move(rest);
            }
        };
        int* muted = &handler->muted;
        return Subscription(std::move(disconnect), muted, std::move(handler));
    }

    void raise(Args... args) const {
        const auto snapshot = list_->current;  // `this` may be gone after any handler
        for (const auto& handler : *snapshot) {
            if (handler->connected && handler->muted == 0) handler->call(args...);
        }
    }

    bool hasHandlers() const { return !list_->current->empty(); }

  private:
    std::shared_ptr<detail::HandlerList<Args...>> list_ = std::make_shared<detail::HandlerList<Args...>>();
};

}  // namespace pellmark
