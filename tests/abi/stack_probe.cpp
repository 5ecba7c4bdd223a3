#include "stack_probe.h"

#include <cstddef>

extern "C" {

struct StackProbe {
  const void* function;
  const std::uint32_t* words;
  std::uint32_t wordCount;
  std::uint32_t residue;
  std::uint32_t answer;
  std::uint32_t removed;
};
static_assert(offsetof(StackProbe, wordCount) == 8 && offsetof(StackProbe, removed) == 20);

void StackProbeCall(StackProbe* probe);
}

// ESI: the probe; EBX: 4 * wordCount; EDI: ESP before the arguments are pushed, which is where it
// must be again after the call. Whatever the callee leaves, EBP brings the stack back.
asm(R"(
    .text
    .globl _StackProbeCall
_StackProbeCall:
    pushl %ebp
    movl %esp, %ebp
    pushl %ebx
    pushl %esi
    pushl %edi
    movl 8(%ebp), %esi
    movl 8(%esi), %ebx
    shll $2, %ebx

    leal (%ebx), %eax
    addl 12(%esi), %eax
    andl $15, %eax
    andl $-16, %esp
    subl $16, %esp
    addl %eax, %esp
    movl %esp, %edi

    movl 4(%esi), %edx
    movl %ebx, %ecx
1:  testl %ecx, %ecx
    jz 2f
    pushl -4(%edx,%ecx)
    subl $4, %ecx
    jmp 1b

2:  call *(%esi)
    movl %eax, 16(%esi)
    movl %esp, %eax
    subl %edi, %eax
    addl %ebx, %eax
    movl %eax, 20(%esi)

    leal -12(%ebp), %esp
    popl %edi
    popl %esi
    popl %ebx
    popl %ebp
    ret
)");

StackProbeResult CallOnStack(const void* function, const std::vector<std::uint32_t>& words,
                             std::uint32_t residue) {
  StackProbe probe = {function, words.data(), static_cast<std::uint32_t>(words.size()), residue, 0,
                      0};
  StackProbeCall(&probe);
  return {probe.answer, probe.removed};
}
