// refused: instance method '-setLevelOfPanel:' not found

#import <AppKit/AppKit.h>

void lift(NSPanel* panel)
{
    [panel setLevelOfPanel:NSFloatingWindowLevel];
}
