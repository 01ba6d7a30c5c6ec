#pragma once

// The part of AVFoundation that Velmora uses, written down from its public documentation.

#import <Foundation/Foundation.h>

@interface AVAudioPlayer : NSObject
- (instancetype)initWithContentsOfURL:(NSURL*)url error:(NSError**)error;
- (BOOL)prepareToPlay;
- (BOOL)play;
- (void)setVolume:(float)volume;
- (void)setCurrentTime:(NSTimeInterval)time;
@end
