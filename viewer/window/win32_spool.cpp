#include "viewer/window/spool_pdf.h"

namespace inin::viewer {

SpoolPdf systemSpool()
{
    return {}; // its queues take what a driver has painted
}

} // namespace inin::viewer
