#pragma once
// The one place callback keys are made: "%x %x" of the receiver's address and the member function's
// address (low 32 bits of each, lower-case hexadecimal). Binding and unbinding both go through
// HOBindMember / HOUnbindMember, so they cannot disagree.
#include "HOEventSignal.h"

#include <cstdint>
#include <cstring>
#include <type_traits>

namespace HXObjects {

template <class Receiver, class Member>
HOString HOMakeCallbackKey(const Receiver* receiver, Member member) {
    static_assert(std::is_member_function_pointer<Member>::value, "a member function is required");
    // A pointer to a non-virtual member function starts with the function's address.
    std::uintptr_t function = 0;
    std::memcpy(&function, &member, sizeof(function));
    const auto object = reinterpret_cast<std::uintptr_t>(receiver);
    return HOString().Format("%x %x", static_cast<unsigned>(object & 0xffffffffu),
                             static_cast<unsigned>(function & 0xffffffffu));
}

template <class Receiver>
void HOBindMember(HOEventSignal& signal, Receiver* receiver, void (Receiver::*member)(void*, HOEvent*)) {
    signal.bind(HOMakeCallbackKey(receiver, member),
                [receiver, member](void* sender, HOEvent* event) { (receiver->*member)(sender, event); });
}

template <class Receiver>
void HOUnbindMember(HOEventSignal& signal, Receiver* receiver, void (Receiver::*member)(void*, HOEvent*)) {
    signal.unbind(HOMakeCallbackKey(receiver, member));
}

template <class Receiver>
bool HOIsMemberBound(const HOEventSignal& signal, const Receiver* receiver,
                     void (Receiver::*member)(void*, HOEvent*)) {
    return signal.isBound(HOMakeCallbackKey(receiver, member));
}

}  // namespace HXObjects
