#pragma once

namespace velmora {

/// The program's entry: one instance a user, everything else follows.
struct VelmoraMain {
    /// Runs the program and returns its exit status: 0, or 1 when no display can be reached.
    static int main(int argc, char** argv);
};

} // namespace velmora
