// Against a server, with connections of its own.
#include "toolkit/GoneWindows.h"

#include "support/ServerErrors.h"

#include <gtest/gtest.h>

#include <X11/Xlib.h>

#include <memory>

namespace slantwise_tests {
namespace {

class GoneWindows : public testing::Test {
protected:
    using Connection = std::unique_ptr<Display, int (*)(Display*)>;
    static Connection connect() { return {XOpenDisplay(nullptr), XCloseDisplay}; }

    void SetUp() override {
        ASSERT_TRUE(other_) << "needs a display";
        juce::disregardGoneWindows(ours_.get());
    }
    // A window of the other program, still hidden.
    Window makeWindow() {
        const Window window = XCreateSimpleWindow(other_.get(), DefaultRootWindow(other_.get()), 0, 0, 10, 10, 0, 0, 0);
        XSync(other_.get(), False);
        return window;
    }
    // One that has just gone.
    Window makeGone() {
        const Window window = makeWindow();
        XDestroyWindow(other_.get(), window);
        XSync(other_.get(), False);
        return window;
    }
    static Status askForParents(const Connection& connection, Window window) {
        Window root = 0, parent = 0, *children = nullptr;
        unsigned count = 0;
        const Status isAnswered = XQueryTree(connection.get(), window, &root, &parent, &children, &count);
        if (isAnswered) XFree(children);
        return isAnswered;
    }

    const Connection other_ = connect(), ours_ = connect();
    const ServerErrors errors_;
};

TEST_F(GoneWindows, AQuestionAboutOneHasNoAnswerAndNobodyHearsOfIt) {
    EXPECT_EQ(askForParents(ours_, makeGone()), 0);
    XWindowAttributes attributes;
    EXPECT_EQ(XGetWindowAttributes(ours_.get(), makeGone(), &attributes), 0);
    EXPECT_EQ(errors_.told(), "");
    EXPECT_NE(askForParents(ours_, makeWindow()), 0) << "the connection goes on";
}

TEST_F(GoneWindows, NobodyHearsOfARequestThatHasNoAnswer) {
    XMapWindow(ours_.get(), makeGone());
    XClearWindow(ours_.get(), makeGone());
    XSetInputFocus(ours_.get(), makeGone(), RevertToParent, CurrentTime);
    XSetInputFocus(ours_.get(), makeWindow(), RevertToParent, CurrentTime); // hidden
    XSync(ours_.get(), False);
    EXPECT_EQ(errors_.told(), "");
}

TEST_F(GoneWindows, AnotherConnectionsErrorsAreToldAsBefore) {
    askForParents(other_, makeGone());
    EXPECT_EQ(errors_.told(), "error 3 of request 15\n");
}

TEST_F(GoneWindows, OtherErrorsAreTold) {
    XFreePixmap(ours_.get(), makeWindow());
    XReparentWindow(ours_.get(), DefaultRootWindow(ours_.get()), makeWindow(), 0, 0); // into its own child
    XSync(ours_.get(), False);
    EXPECT_EQ(errors_.told(), "error 4 of request 54\nerror 8 of request 7\n");
}

} // namespace
} // namespace slantwise_tests
