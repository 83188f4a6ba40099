#include "pages/page_table.h"

#include "pages/axes_conv_page.h"
#include "pages/controller_page.h"
#include "pages/default_points_page.h"
#include "pages/directories_page.h"
#include "pages/init_page.h"
#include "pages/mac_par_page.h"
#include "pages/mech_offsets_page.h"
#include "pages/sounds_page.h"
#include "pages/system_param_page.h"
#include "pages/volcomp_page.h"
#include "pages/win_color_page.h"

namespace wk {

namespace {

// The controller entry is offered for the controllers that have options of their own.
bool HasControllerOptions(const ControllerFlags& flags) {
    return flags.HasControllerOptions();
}

// A page that is not built yet has no factory. Adding a page: its class, its factory here
// (&MakePage<TPage>) and its sources in src/pages/CMakeLists.txt.
// clang-format off
const PageEntry kPages[] = {
    {.sheetName = "MacParTabSheet", .designCaption = "Machine Parameters",
     .factory = &MakePage<TMacParPage>,
     .helpContext = 18, .storesOnOk = true, .refreshOnEntry = true, .refreshOnChange = false,
     .startPage = true,
     .menu = {.name = "KestelGenConf_MacPar", .popup = MenuPopup::GeneralConfiguration,
              .position = 1, .captionId = 5, .hintId = 29}},
    {.sheetName = "SysParTabSheet", .designCaption = "System Parameters",
     .factory = &MakePage<TSysParPage>,
     .helpContext = 19, .storesOnOk = true, .refreshOnEntry = true, .refreshOnChange = false,
     .startPage = false,
     .menu = {.name = "KestelGenConf_SysParam", .popup = MenuPopup::GeneralConfiguration,
              .position = 2, .captionId = 6, .hintId = 30}},
    {.sheetName = "InitTabSheet", .designCaption = "Init", .factory = &MakePage<TInitPage>,
     .helpContext = 20, .storesOnOk = true, .refreshOnEntry = true, .refreshOnChange = false,
     .startPage = false,
     .menu = {.name = "KestelGenConf_Init", .popup = MenuPopup::GeneralConfiguration,
              .position = 3, .captionId = 7, .hintId = 31}},
    {.sheetName = "MecOffTabSheet", .designCaption = "Mechanical Offsets",
     .factory = &MakePage<TMecOffPage>,
     .helpContext = 21, .storesOnOk = true, .refreshOnEntry = true, .refreshOnChange = false,
     .startPage = false,
     .menu = {.name = "KestelGenConf_MecOff", .popup = MenuPopup::GeneralConfiguration,
              .position = 5, .captionId = 8, .hintId = 32}},
    {.sheetName = "ControllerTabSheet", .designCaption = "Controller",
     .factory = &MakePage<TControllerPage>,
     .helpContext = 22, .storesOnOk = true, .refreshOnEntry = true, .refreshOnChange = false,
     .startPage = false,
     .menu = {.name = "KestelGenConf_Controller", .popup = MenuPopup::GeneralConfiguration,
              .position = 6, .captionId = 9, .hintId = 33,
              .separatorBefore = "KestelGenConf_ControlSeparator",
              .shownFor = &HasControllerOptions}},
    {.sheetName = "NumPointsTabSheet", .designCaption = "Number of pts.",
     .factory = &MakePage<TNumPointsPage>,
     .helpContext = 23, .storesOnOk = true, .refreshOnEntry = true, .refreshOnChange = false,
     .startPage = false,
     .menu = {.name = "KestelElemPar_NumPts", .popup = MenuPopup::ElementParameters,
              .position = 1, .captionId = 14, .hintId = 34}},
    {.sheetName = "SoundsTabSheet", .designCaption = "Sounds", .factory = &MakePage<TSoundsPage>,
     .helpContext = 26, .storesOnOk = true, .refreshOnEntry = true, .refreshOnChange = false,
     .startPage = false,
     .menu = {.name = "KestelOther_Sounds", .popup = MenuPopup::Other,
              .position = 1, .captionId = 17, .hintId = 36}},
    {.sheetName = "WinColorTabSheet", .designCaption = "Windows Colors",
     .factory = &MakePage<TWinColorPage>,
     .helpContext = 28, .storesOnOk = true, .refreshOnEntry = true, .refreshOnChange = true,
     .startPage = false,
     .menu = {.name = "KestelOther_WindowsColor", .popup = MenuPopup::Other,
              .position = 2, .captionId = 16, .hintId = 37}},
    {.sheetName = "DirectoriesTabSheet", .designCaption = "Directories",
     .factory = &MakePage<TDirectoriesPage>,
     .helpContext = 30, .storesOnOk = true, .refreshOnEntry = false, .refreshOnChange = false,
     .startPage = false,
     .menu = {.name = "KestelOther_Directories", .popup = MenuPopup::Other,
              .position = 3, .captionId = 18, .hintId = 38}},
    // Nothing to store: a click on its buttons writes the record at once.
    {.sheetName = "AxesConvTabSheet", .designCaption = "Axes Convention",
     .factory = &MakePage<TAxesConvPage>,
     .helpContext = 32, .storesOnOk = false, .refreshOnEntry = false, .refreshOnChange = true,
     .startPage = false,
     .menu = {.name = "KestelOther_AxesConvention", .popup = MenuPopup::Other,
              .position = 4, .captionId = 19, .hintId = 0}},
    // The menu entry keeps "&Volcomp" in every language (caption id 0).
    {.sheetName = "VolcompTabSheet", .designCaption = "Volcomp",
     .factory = &MakePage<TVolcompPage>,
     .helpContext = 127, .storesOnOk = true, .refreshOnEntry = true, .refreshOnChange = false,
     .startPage = false,
     .menu = {.name = "KestelGenConf_Volcomp", .popup = MenuPopup::GeneralConfiguration,
              .position = 4, .captionId = 0, .hintId = 0}},
};
// clang-format on

}  // namespace

std::span<const PageEntry> PageTable() {
    return kPages;
}

}  // namespace wk
