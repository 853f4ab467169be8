#include "viewer/window/spool_pdf.h"

namespace inin::viewer {

SpoolPdf systemSpool()
{
    return {}; // its queues accept only pages that a driver has painted
}

} // namespace inin::viewer
