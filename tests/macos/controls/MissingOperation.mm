// refused: allocating an object of abstract class type 'velmora::Half'

#include "Velmora/platform/DesktopWindow.h"

#include <memory>

namespace velmora {

class Half final : public DesktopWindow { };

std::unique_ptr<DesktopWindow> half()
{
    return std::unique_ptr<DesktopWindow>(new Half);
}

} // namespace velmora
