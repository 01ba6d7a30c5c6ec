// refused: undeclared selector 'wakeUp:'

#import <Foundation/Foundation.h>

void hear(id observer)
{
    [[NSNotificationCenter defaultCenter] addObserver:observer
                                             selector:@selector(wakeUp:)
                                                 name:@"wake"
                                               object:nil];
}
