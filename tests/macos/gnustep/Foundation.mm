// A second opinion on the adapters that need Foundation alone: GNUstep's, which is another's work
// from the same documentation, compiles them and runs them.

#import <Foundation/Foundation.h>

#include "Velmora/platform/macos/BundleResources.h"
#include "Velmora/platform/macos/DistributedFocus.h"
#include "Velmora/platform/macos/FocusUserInfo.h"
#include "Velmora/platform/macos/FoundationText.h"
#include "Velmora/platform/macos/ProcessActivity.h"

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

namespace {

using velmora::FocusRequest;

int failures = 0;

void expect(bool holds, char const* sentence)
{
    std::printf("%s: %s\n", holds ? "holds" : "FAILS", sentence);
    failures += holds ? 0 : 1;
}

/// Lets the run loop work until this many requests have come, or for ten seconds.
void waitFor(std::vector<FocusRequest> const& received, std::size_t count)
{
    NSDate* const end = [NSDate dateWithTimeIntervalSinceNow:10];
    while (received.size() < count && [end timeIntervalSinceNow] > 0) {
        [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode
                                 beforeDate:[NSDate dateWithTimeIntervalSinceNow:0.05]];
    }
}

void post(NSDictionary* info)
{
    [[NSDistributedNotificationCenter defaultCenter]
        postNotificationName:velmora::text(velmora::FocusUserInfo::name)
                      object:nil
                    userInfo:info
          deliverImmediately:YES];
}

void tryFocus()
{
    std::vector<FocusRequest> received;
    {
        velmora::DistributedFocus const focus(
            [&received](FocusRequest const& request) { received.push_back(request); });
        velmora::postFocusRequest({.settings = true, .preview = false});
        velmora::postFocusRequest({.settings = false, .preview = true});
        post([NSDictionary dictionaryWithObjectsAndKeys:@"yes", @"settings", nil]);
        post([NSDictionary
            dictionaryWithObjectsAndKeys:[NSNumber numberWithInt:2], @"preview", nil]);
        post(nil);
        waitFor(received, 5);
    }
    expect(received.size() == 5, "every focus request arrives, once");
    received.resize(5);
    expect(received[0] == FocusRequest{.settings = true, .preview = false}
            && received[1] == FocusRequest{.settings = false, .preview = true},
        "the two booleans arrive as they were sent");
    expect(received[2] == FocusRequest{}, "a text in a boolean's place counts as false");
    expect(received[3] == FocusRequest{}, "a number that can be no boolean counts as false");
    expect(received[4] == FocusRequest{}, "a request that says nothing asks for nothing more");
}

void tryTextAndFiles()
{
    using velmora::text;
    expect([text("Settings…") isEqualToString:[NSString stringWithUTF8String:"Settings…"]],
        "UTF-8 becomes the system's text");
    expect([text("a\xff") length] == 0, "what is no UTF-8 leaves nothing");
    expect(std::string([[velmora::fileUrl("/tmp/a b/ü.wav") path] fileSystemRepresentation])
            == "/tmp/a b/ü.wav",
        "a file's URL keeps its path");
    expect(!velmora::BundleResources().find("chime", "wav"),
        "a resource that the bundle does not have is absent");
    expect(velmora::bundlePath().is_absolute(), "the bundle has an absolute path");
}

void tryActivity()
{
    velmora::ProcessActivity const activity;
    expect(true, "an activity begins and ends");
}

} // namespace

int main()
{
    @autoreleasepool {
        tryTextAndFiles();
        tryActivity();
        tryFocus();
    }
    return failures == 0 ? 0 : 1;
}
