#include "platform/view/Responder.h"

#include "platform/view/Window.h"

namespace QVM_NAMESPACE {

Responder::~Responder() {
    if (firstResponderOf_) firstResponderOf_->forgetResponder(*this);
}

void Responder::mouseDown(const Event& event) {
    if (Responder* next = nextResponder()) next->mouseDown(event);
}

void Responder::mouseDragged(const Event& event) {
    if (Responder* next = nextResponder()) next->mouseDragged(event);
}

void Responder::mouseUp(const Event& event) {
    if (Responder* next = nextResponder()) next->mouseUp(event);
}

void Responder::rightMouseDown(const Event& event) {
    if (Responder* next = nextResponder()) next->rightMouseDown(event);
}

void Responder::scrollWheel(const Event& event) {
    if (Responder* next = nextResponder()) next->scrollWheel(event);
}

bool Responder::keyDown(const Event& event) {
    Responder* next = nextResponder();
    return next && next->keyDown(event);
}

bool Responder::performKeyEquivalent(const Event&) {
    return false;
}

} // namespace QVM_NAMESPACE
