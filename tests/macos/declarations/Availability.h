#pragma once

// The first version of macOS that has what follows it.
#define VELMORA_SINCE(version) __attribute__((availability(macos, introduced = version)))
