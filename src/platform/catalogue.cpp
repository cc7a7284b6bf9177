#include "platform/catalogue.hpp"

#include "platform/orlin/reg_bitmask_dq.hpp"
#include "platform/orlin/reg_info_orlin_ddr.hpp"
#include "platform/orlin/reg_info_orlin_dq.hpp"
#include "property/property_file.hpp"
#include "property/property_group.hpp"
#include "property/property_regulator_voltage.hpp"
#include "reg/reg_bitmask.hpp"
#include "reg/reg_bitmask_map.hpp"
#include "reg/reg_bitmask_ro.hpp"
#include "reg/reg_info.hpp"

/*
 * Everything here is built in the order in which it is written. The headers of the ownership lists
 * and of the registries come first, so those exist before the first field and outlive the last.
 */

namespace {

using orlin::dq_lanes;
using orlin::reg_bitmask_dq;
using orlin::reg_info_orlin_ddr;
using orlin::reg_info_orlin_dq;

template <class T>
using field_list = const std::initializer_list<T*>;

// The DDR PHYs. All three have the same layout; a data register shows the word that the select
// register points at.
constexpr unsigned int orlin_ddra = 0x18428000;
constexpr unsigned int orlin_ddrb = 0x18448000;
constexpr unsigned int pelune_ddr = 0x1A419000;

constexpr unsigned int io_control = 0x120;
constexpr unsigned int select = 0x12C;
constexpr unsigned int slice_data = 0x13C;
constexpr unsigned int read_data = 0x194;
constexpr unsigned int write_data = 0x1A0;

// clang-format off

// DQ delays:         bits  name   description  lane's part of the selector
const dq_lanes dq_read_fields = {
    new reg_bitmask_dq(6, 0, "dq0", "no desc", 0x000),
    new reg_bitmask_dq(6, 0, "dq1", "no desc", 0x100),
    new reg_bitmask_dq(6, 0, "dq2", "no desc", 0x200),
    new reg_bitmask_dq(6, 0, "dq3", "no desc", 0x300),
    new reg_bitmask_dq(6, 0, "dq4", "no desc", 0x400),
    new reg_bitmask_dq(6, 0, "dq5", "no desc", 0x500),
    new reg_bitmask_dq(6, 0, "dq6", "no desc", 0x600),
    new reg_bitmask_dq(6, 0, "dq7", "no desc", 0x700),
};

const dq_lanes dq_write_fields = {
    new reg_bitmask_dq(6, 0, "dq0", "no desc", 0x000),
    new reg_bitmask_dq(6, 0, "dq1", "no desc", 0x100),
    new reg_bitmask_dq(6, 0, "dq2", "no desc", 0x200),
    new reg_bitmask_dq(6, 0, "dq3", "no desc", 0x300),
    new reg_bitmask_dq(6, 0, "dq4", "no desc", 0x400),
    new reg_bitmask_dq(6, 0, "dq5", "no desc", 0x500),
    new reg_bitmask_dq(6, 0, "dq6", "no desc", 0x600),
    new reg_bitmask_dq(6, 0, "dq7", "no desc", 0x700),
    new reg_bitmask_dq(6, 0, "dq8", "no desc", 0x800),
};

field_list<reg_bitmask> ddr_slice_fields = {
    new reg_bitmask(31, 0, "scl", "no desc"),
};

} // namespace

namespace orlin {

//                                               user value -> raw code
const reg_bitmask_map::value_map _drv_map = {{30, 15}, {34, 14}, {40, 11}, {60, 8}};
const reg_bitmask_map::value_map _odt_map = {{40, 6}, {60, 4}, {120, 1}, {0, 0}};

} // namespace orlin

namespace {

field_list<reg_bitmask_map> ddr_io_fields = {
    new reg_bitmask_map(23, 20, "clkdrv", "clk strength",       &orlin::_drv_map),
    new reg_bitmask_map(19, 16, "adrdrv", "addr strength",      &orlin::_drv_map),
    new reg_bitmask_map( 7,  4, "dqsdrv", "dqs/dq strength",    &orlin::_drv_map),
    new reg_bitmask_map( 3,  0, "odt",    "on-die termination", &orlin::_odt_map),
};

reg_info* dq(const char* name, unsigned int selector, unsigned int phy, unsigned int data,
             const dq_lanes& lanes) {
    return new reg_info_orlin_dq(name, selector, phy + select, phy + data, lanes);
}

reg_info* slice(const char* name, unsigned int selector, unsigned int phy) {
    return new reg_info_orlin_ddr(name, selector, phy + select, phy + slice_data, ddr_slice_fields);
}

template <class T>
reg_info* word(const char* name, unsigned int address, const std::initializer_list<T*>& fields) {
    return new reg_info(name, address, fields, true);
}

} // namespace

const std::initializer_list<reg_info*> orlin_ddr_registers = {
    // name               selector  PHY         data register  lanes
    dq("orlin-ddra-read0",      0, orlin_ddra, read_data, dq_read_fields),
    dq("orlin-ddra-read1",      7, orlin_ddra, read_data, dq_read_fields),
    dq("orlin-ddra-read2",     14, orlin_ddra, read_data, dq_read_fields),
    dq("orlin-ddra-read3",     21, orlin_ddra, read_data, dq_read_fields),
    dq("orlin-ddrb-read0",      0, orlin_ddrb, read_data, dq_read_fields),
    dq("orlin-ddrb-read1",      7, orlin_ddrb, read_data, dq_read_fields),
    dq("orlin-ddrb-read2",     14, orlin_ddrb, read_data, dq_read_fields),
    dq("orlin-ddrb-read3",     21, orlin_ddrb, read_data, dq_read_fields),
    dq("orlin-ddrb-read4",     28, orlin_ddrb, read_data, dq_read_fields),
    dq("orlin-ddrb-read5",     35, orlin_ddrb, read_data, dq_read_fields),
    dq("orlin-ddrb-read6",     42, orlin_ddrb, read_data, dq_read_fields),
    dq("orlin-ddrb-read7",     49, orlin_ddrb, read_data, dq_read_fields),
    dq("orlin-ddra-write0",     0, orlin_ddra, write_data, dq_write_fields),
    dq("orlin-ddra-write1",     7, orlin_ddra, write_data, dq_write_fields),
    dq("orlin-ddra-write2",    14, orlin_ddra, write_data, dq_write_fields),
    dq("orlin-ddra-write3",    21, orlin_ddra, write_data, dq_write_fields),
    dq("orlin-ddrb-write0",     0, orlin_ddrb, write_data, dq_write_fields),
    dq("orlin-ddrb-write1",     7, orlin_ddrb, write_data, dq_write_fields),
    dq("orlin-ddrb-write2",    14, orlin_ddrb, write_data, dq_write_fields),
    dq("orlin-ddrb-write3",    21, orlin_ddrb, write_data, dq_write_fields),
    dq("orlin-ddrb-write4",    28, orlin_ddrb, write_data, dq_write_fields),
    dq("orlin-ddrb-write5",    35, orlin_ddrb, write_data, dq_write_fields),
    dq("orlin-ddrb-write6",    42, orlin_ddrb, write_data, dq_write_fields),
    dq("orlin-ddrb-write7",    49, orlin_ddrb, write_data, dq_write_fields),
    // name          selector  PHY
    slice("orlin-ddra0",     0, orlin_ddra),
    slice("orlin-ddra1",     8, orlin_ddra),
    slice("orlin-ddra2",    16, orlin_ddra),
    slice("orlin-ddra3",    24, orlin_ddra),
    slice("orlin-ddrb0",     0, orlin_ddrb),
    slice("orlin-ddrb1",     8, orlin_ddrb),
    slice("orlin-ddrb2",    16, orlin_ddrb),
    slice("orlin-ddrb3",    24, orlin_ddrb),
    slice("orlin-ddrb4",    32, orlin_ddrb),
    slice("orlin-ddrb5",    40, orlin_ddrb),
    slice("orlin-ddrb6",    48, orlin_ddrb),
    slice("orlin-ddrb7",    56, orlin_ddrb),
    // name         address
    word("orlin-ddra", orlin_ddra + io_control, ddr_io_fields),
    word("orlin-ddrb", orlin_ddrb + io_control, ddr_io_fields),
};

const std::initializer_list<reg_info*> pelune_ddr_registers = {
    // name               selector  PHY         data register  lanes
    dq("pelune-ddr-read0",      0, pelune_ddr, read_data, dq_read_fields),
    dq("pelune-ddr-read1",      7, pelune_ddr, read_data, dq_read_fields),
    dq("pelune-ddr-read2",     14, pelune_ddr, read_data, dq_read_fields),
    dq("pelune-ddr-read3",     21, pelune_ddr, read_data, dq_read_fields),
    dq("pelune-ddr-write0",     0, pelune_ddr, write_data, dq_write_fields),
    dq("pelune-ddr-write1",     7, pelune_ddr, write_data, dq_write_fields),
    dq("pelune-ddr-write2",    14, pelune_ddr, write_data, dq_write_fields),
    dq("pelune-ddr-write3",    21, pelune_ddr, write_data, dq_write_fields),
    // name          selector  PHY
    slice("pelune-ddr0",     0, pelune_ddr),
    slice("pelune-ddr1",     8, pelune_ddr),
    slice("pelune-ddr2",    16, pelune_ddr),
    slice("pelune-ddr3",    24, pelune_ddr),
    // name         address
    word("pelune-ddr", pelune_ddr + io_control, ddr_io_fields),
};

namespace {

field_list<reg_bitmask> usb_phy_fields = {
    new reg_bitmask(25, 25, "pre-emphasis-duration", "0=580ps*, 1=1160ps"),
    new reg_bitmask(24, 23, "pre-emphasis-current",  "0=disable, 1=600uA*, 2=1200uA, 3=1800uA"),
    new reg_bitmask(22, 21, "tx-res-tune",           "0=+1.5ohm, 1=0*, 2=-2, 3=-4"),
    new reg_bitmask(20, 19, "tx-rise",               "0=+10%, 1=0*, 2=-15%, 3=-20%"),
    new reg_bitmask(18, 15, "tx-vref",               "x=0~15 : 400mV + (-6 + 2x)%"),
    new reg_bitmask(14, 11, "tx-fsls",               "x=0~15 : 45ohm + (5 - 2.5x)%"),
    new reg_bitmask(10,  9, "tx-crossover",          "0=0mV*, 1=-15mV, 2=+15mV"),
    new reg_bitmask( 8,  6, "vbus-valid",            "x=0~7  : 5V + (-12 + 3x)%"),
    new reg_bitmask( 5,  3, "squelch-threshold",     "x=0~7  : 125mV + (15 - 5x)%"),
    new reg_bitmask( 2,  0, "disconnect-threshold",  "x=0~7  : 575mV + (-6 + 1.5x)%"),
};

constexpr unsigned int usb_phys = 0x1170C000;

} // namespace

const std::initializer_list<reg_info*> ehci_registers = {
    word("ehci0-phy", usb_phys + 0x08, usb_phy_fields),
    word("ehci1-phy", usb_phys + 0x1C, usb_phy_fields),
};

namespace {

field_list<reg_bitmask> i2c_delay_fields = {
    new reg_bitmask(3, 0, "sda-delay", "[0-15]cycles"),
    new reg_bitmask(7, 4, "scl-delay", "[0-15]cycles"),
};

constexpr unsigned int i2c_bank0 = 0x10090110;
constexpr unsigned int i2c_bank1 = 0x10091010;

} // namespace

// The controllers sit 0x20 apart, but for the fifth of each bank, which is at 0x70 and not at 0x80.
const std::initializer_list<reg_info*> i2c_registers = {
    word("i2c0-delay",  i2c_bank0 + 0x00, i2c_delay_fields),
    word("i2c1-delay",  i2c_bank0 + 0x20, i2c_delay_fields),
    word("i2c2-delay",  i2c_bank0 + 0x40, i2c_delay_fields),
    word("i2c3-delay",  i2c_bank0 + 0x60, i2c_delay_fields),
    word("i2c4-delay",  i2c_bank0 + 0x70, i2c_delay_fields),
    word("i2c5-delay",  i2c_bank0 + 0xA0, i2c_delay_fields),
    word("i2c6-delay",  i2c_bank0 + 0xC0, i2c_delay_fields),
    word("i2c7-delay",  i2c_bank0 + 0xE0, i2c_delay_fields),
    word("i2c8-delay",  i2c_bank1 + 0x00, i2c_delay_fields),
    word("i2c9-delay",  i2c_bank1 + 0x20, i2c_delay_fields),
    word("i2c10-delay", i2c_bank1 + 0x40, i2c_delay_fields),
    word("i2c11-delay", i2c_bank1 + 0x60, i2c_delay_fields),
    word("i2c12-delay", i2c_bank1 + 0x70, i2c_delay_fields),
    word("i2c13-delay", i2c_bank1 + 0xA0, i2c_delay_fields),
    word("i2c14-delay", i2c_bank1 + 0xC0, i2c_delay_fields),
    word("i2c15-delay", i2c_bank1 + 0xE0, i2c_delay_fields),
};

const std::initializer_list<property*> mmc_properties = {
    new property_file<int>("mmc::rdqs", "/sys/kernel/debug/mmc0/rdqs", 2, 255),
};

namespace {

field_list<reg_bitmask> mac_delay_fields = {
    new reg_bitmask(23, 20, "delay", "[0-15]cycles"),
};

constexpr unsigned int mac = 0x10040000;

} // namespace

const std::initializer_list<reg_info*> mac_registers = {
    word("mac-tx", mac + 0x4, mac_delay_fields),
    word("mac-rx", mac + 0x8, mac_delay_fields),
};

namespace {

field_list<reg_bitmask> ebus_delay_fields = {
    new reg_bitmask(12, 8, "rx", "[0-31]cycles"),
    new reg_bitmask( 4, 0, "tx", "[0-31]cycles"),
};
field_list<reg_bitmask> ebus_strength0_fields = {
    new reg_bitmask(9, 8, "value", "[0-3]cycles"),
};
field_list<reg_bitmask> ebus_strength1_fields = {
    new reg_bitmask(1, 0, "value", "[0-3]cycles"),
};

constexpr unsigned int ebus = 0x11250C00;

} // namespace

const std::initializer_list<reg_info*> ebus_registers = {
    word("ebus-delay",     ebus + 0xBC, ebus_delay_fields),
    word("ebus-strength0", ebus + 0x4C, ebus_strength0_fields),
    word("ebus-strength1", ebus + 0x50, ebus_strength1_fields),
};

const std::initializer_list<property*> regulator_properties = {
    // name                                                    directory                               percent
    new property_regulator_voltage("cpu_regulator::microvolts",    "/sys/class/regulator/regulator.1", 93, 107),
    new property_regulator_voltage("gpu_regulator::microvolts",    "/sys/class/regulator/regulator.2", 93, 107),
    new property_regulator_voltage("pelune_regulator::microvolts", "/sys/class/regulator/regulator.3", 93, 107),
    new property_regulator_voltage("core_regulator::microvolts",   "/sys/class/regulator/regulator.4", 93, 107),
};

namespace {

field_list<reg_bitmask_ro> pcie_link_fields = {
    new reg_bitmask_ro(3, 0, "state-ro", "1:=gen1, 2:=gen2"),
};
field_list<reg_bitmask_ro> pcie_ltssm_fields = {
    new reg_bitmask_ro(5, 0, "state-ro", "3 for linkup, other value fail"),
};

// One word seen twice, through fields of different width.
constexpr unsigned int pcie_state = 0x111A2204;

} // namespace

const std::initializer_list<reg_info*> pcie_registers = {
    word("pcie-link",  pcie_state, pcie_link_fields),
    word("pcie-ltssm", pcie_state, pcie_ltssm_fields),
};
