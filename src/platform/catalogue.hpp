#pragma once

#include <initializer_list>

class property;
class reg_info;

/*
 * The hardware that the tool knows: every tunable register of the chips orlin and pelune and of
 * the peripherals around them, their regulators, and the eMMC host's debugfs file.
 *
 * Everything is built before main, in one fixed order, and never changes afterwards. Building
 * reads the eMMC host's file once and touches no register. The lists hold plain pointers: the
 * registers belong to `info_garbages`, the properties to the property registry once they are
 * registered.
 */

extern const std::initializer_list<reg_info*> orlin_ddr_registers;
extern const std::initializer_list<reg_info*> pelune_ddr_registers;
extern const std::initializer_list<reg_info*> ehci_registers;
extern const std::initializer_list<reg_info*> i2c_registers;
extern const std::initializer_list<reg_info*> mac_registers;
extern const std::initializer_list<reg_info*> ebus_registers;
extern const std::initializer_list<reg_info*> pcie_registers;

extern const std::initializer_list<property*> regulator_properties;
extern const std::initializer_list<property*> mmc_properties;
