#include "Velmora/shell/VelmoraMain.h"

int main(int argc, char** argv)
{
    return velmora::VelmoraMain::main(argc, argv);
}
