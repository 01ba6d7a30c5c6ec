// refused: cannot initialize a parameter of type 'NSColor *' with an rvalue of type 'NSString *'

#import <AppKit/AppKit.h>

void colour(NSWindow* window)
{
    [window setBackgroundColor:@"clear"];
}
