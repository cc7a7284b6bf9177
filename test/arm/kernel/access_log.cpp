// A plugin of qemu-system: logs each load and store that programs make in the memory device, as the
// emulator executes it, in lines such as "read 0x18428120 0x40eb02b4". An access that is not 32
// bits wide has its width in front: "16-bit read ...".
//
//     -plugin access_log.so,registers=FILE,log=FILE
//
// The first file is the memory behind the device: byte 0 lies at address 0x10000000. One processor.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <fcntl.h>
#include <sys/mman.h>

// The emulator's plugin interface, version 1. Debian packages no header for it.
extern "C" {
struct qemu_plugin_tb;
struct qemu_plugin_insn;
struct qemu_plugin_hwaddr;
struct qemu_info_t;
using translation_callback = void(std::uint64_t id, qemu_plugin_tb* block);
using memory_callback = void(unsigned processor, std::uint32_t info, std::uint64_t address, void*);

void qemu_plugin_register_vcpu_tb_trans_cb(std::uint64_t id, translation_callback* callback);
std::size_t qemu_plugin_tb_n_insns(const qemu_plugin_tb* block);
qemu_plugin_insn* qemu_plugin_tb_get_insn(const qemu_plugin_tb* block, std::size_t index);
std::uint64_t qemu_plugin_insn_vaddr(const qemu_plugin_insn* instruction);
void qemu_plugin_register_vcpu_mem_cb(qemu_plugin_insn* instruction, memory_callback* callback,
                                      int registers, int direction, void* data);
qemu_plugin_hwaddr* qemu_plugin_get_hwaddr(std::uint32_t info, std::uint64_t address);
std::uint64_t qemu_plugin_hwaddr_phys_addr(const qemu_plugin_hwaddr* place);
unsigned qemu_plugin_mem_size_shift(std::uint32_t info);
bool qemu_plugin_mem_is_store(std::uint32_t info);
}

namespace {

constexpr std::uint64_t device_address = 0x10000000;
constexpr std::size_t device_bytes = 0x10000000;

const char* registers = nullptr;
std::FILE* log_file = nullptr;

/** Static programs have their code below 1 GiB. There the machine "virt" has no memory, so kernels
 * and what unpacks them have none. */
bool is_program_code(std::uint64_t address) {
    return address < 0x40000000;
}

/** Called after the access. */
void on_access(unsigned, std::uint32_t info, std::uint64_t address, void*) {
    const qemu_plugin_hwaddr* const place = qemu_plugin_get_hwaddr(info, address);
    const std::uint64_t offset = qemu_plugin_hwaddr_phys_addr(place) - device_address;
    if (offset >= device_bytes) {
        return;
    }
    const unsigned bits = 8U << qemu_plugin_mem_size_shift(info);
    std::uint32_t word = 0;
    std::memcpy(&word, registers + offset / 4 * 4, sizeof word);
    if (bits != 32) {
        std::fprintf(log_file, "%u-bit ", bits);
    }
    std::fprintf(log_file, "%s 0x%08x 0x%08x\n", qemu_plugin_mem_is_store(info) ? "write" : "read",
                 static_cast<unsigned>(device_address + offset), word);
    std::fflush(log_file);
}

void on_translation(std::uint64_t, qemu_plugin_tb* block) {
    constexpr int no_registers = 0;
    constexpr int loads_and_stores = 3;
    for (std::size_t index = 0; index < qemu_plugin_tb_n_insns(block); ++index) {
        qemu_plugin_insn* const instruction = qemu_plugin_tb_get_insn(block, index);
        if (is_program_code(qemu_plugin_insn_vaddr(instruction))) {
            qemu_plugin_register_vcpu_mem_cb(instruction, on_access, no_registers, loads_and_stores,
                                             nullptr);
        }
    }
}

void set_up(const std::string& option) {
    const std::string value = option.substr(option.find('=') + 1);
    if (option.starts_with("log=")) {
        log_file = std::fopen(value.c_str(), "w");
    } else if (option.starts_with("registers=")) {
        const int descriptor = open(value.c_str(), O_RDONLY);
        void* const start = mmap(nullptr, device_bytes, PROT_READ, MAP_SHARED, descriptor, 0);
        registers = start == MAP_FAILED ? nullptr : static_cast<const char*>(start);
    }
}

} // namespace

extern "C" {

[[gnu::visibility("default")]] int qemu_plugin_version = 1;

[[gnu::visibility("default")]] int qemu_plugin_install(std::uint64_t id, const qemu_info_t*,
                                                       int count, char** options) {
    for (int index = 0; index < count; ++index) {
        set_up(options[index]);
    }
    if (log_file == nullptr || registers == nullptr) {
        std::fprintf(stderr, "access_log: cannot open what the options name\n");
        return 1;
    }
    qemu_plugin_register_vcpu_tb_trans_cb(id, on_translation);
    return 0;
}
}
