// refused: 'frameResizeCursorFromPosition:inDirections:' is only available on macOS 15.0 or newer

#import <AppKit/AppKit.h>

NSCursor* cursor()
{
    return [NSCursor frameResizeCursorFromPosition:NSCursorFrameResizePositionBottomRight
                                      inDirections:NSCursorFrameResizeDirectionsAll];
}
