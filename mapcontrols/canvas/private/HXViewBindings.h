#pragma once
// HXViewBindings: binds the canvas's callbacks to view signals (under the usual keys, so that
// HOUnbindMember removes them) and keeps track of every view that still carries one. A view replaced
// by SetMapView or SetPageLayoutView keeps some of its callbacks on purpose; when the canvas goes,
// boundViews() names them all so that none is left calling into a dead canvas.
//
// No reference is held on a view: each bound callback carries a token of its view, and a view that
// is destroyed (or loses its last callback from the canvas) takes its tokens with it.
#include <memory>
#include <vector>

#include "HOCallbackKey.h"
#include "HOView.h"

class HXViewBindings {
public:
    template <class Receiver>
    void bind(HXObjects::HOView* view, HXObjects::HOEventSignal& signal, Receiver* receiver,
              void (Receiver::*member)(void*, HXObjects::HOEvent*)) {
        std::shared_ptr<const Token> token = tokenOf(view);
        signal.bind(HXObjects::HOMakeCallbackKey(receiver, member),
                    [receiver, member, token](void* sender, HXObjects::HOEvent* event) {
                        (receiver->*member)(sender, event);
                    });
    }

    // The views that still carry a callback bound here.
    std::vector<HXObjects::HOView*> boundViews() const {
        std::vector<HXObjects::HOView*> views;
        for (const auto& weak : m_tokens)
            if (const auto token = weak.lock()) views.push_back(token->view);
        return views;
    }

private:
    struct Token {
        HXObjects::HOView* view;
    };

    std::shared_ptr<const Token> tokenOf(HXObjects::HOView* view) {
        std::shared_ptr<const Token> found;
        auto it = m_tokens.begin();
        while (it != m_tokens.end()) {
            auto token = it->lock();
            if (!token) {
                it = m_tokens.erase(it);
                continue;
            }
            if (token->view == view) found = token;
            ++it;
        }
        if (found) return found;
        auto token = std::make_shared<const Token>(Token{view});
        m_tokens.push_back(token);
        return token;
    }

    std::vector<std::weak_ptr<const Token>> m_tokens;
};
