#pragma once

#include <QString>

/// The exchange file for the handheld: a snapshot of nine tables as one XML text, which the device
/// works from. Reads on Data and changes nothing there.
namespace exchange {

/// Where the file stands.
[[nodiscard]] QString exportedFile();

/// Writes "\XML_OUT\Data.xml" and tells the user. True when it was written. A file that stood there
/// stays until the new one is whole, and stays when there is nothing to export or the text is no
/// XML. failed comes back True when the text or the writing was at fault: trying again is of no
/// use then. No error crosses it.
[[nodiscard]] bool GenrateXML(bool &failed);

// The sections, each as a whole with its tags, or empty when there are no rows. Inside a whole
// they pass their errors on.

/// All machines, the inactive ones too.
[[nodiscard]] QString Equipment_XML();
[[nodiscard]] QString Crew_XML();
/// The latest readings of the meters that a reading is due of.
[[nodiscard]] QString EquipmentCount_XML();
/// Orders that are not complete and hold work.
[[nodiscard]] QString WorkOrder_XML();
/// What is not completed on these orders.
[[nodiscard]] QString ServiceUsed_XML();
/// The parts on these orders, those of completed services too.
[[nodiscard]] QString ServiceUsedPart_XML();
/// The catalogue whole: parts, services, and the parts that these need.
[[nodiscard]] QString Part_XML();
[[nodiscard]] QString Service_XML();
[[nodiscard]] QString ServicePart_XML();

} // namespace exchange
