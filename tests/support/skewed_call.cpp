#include "support/skewed_call.hpp"

// A compiler's own frame would put the stack pointer where it likes, so this is assembly. The
// frame pointer is one of the kept registers: the way back lies on the stack, over the arguments.
asm(R"(
        .text
        .globl  call_on_skewed_stack
        .type   call_on_skewed_stack, @function
call_on_skewed_stack:
        pushl   %ebp
        movl    %esp, %ebp
        pushl   %ebx
        pushl   %esi
        pushl   %edi
        movl    8(%ebp), %eax
        movl    12(%ebp), %edx
        andl    $-16, %esp
        subl    $48, %esp
        addl    16(%ebp), %esp
        movl    %ebp, 20(%esp)
        movl    0(%edx), %ecx
        movl    %ecx, 0(%esp)
        movl    4(%edx), %ecx
        movl    %ecx, 4(%esp)
        movl    8(%edx), %ecx
        movl    %ecx, 8(%esp)
        movl    12(%edx), %ecx
        movl    %ecx, 12(%esp)
        movl    16(%edx), %ecx
        movl    %ecx, 16(%esp)
        movl    $0x11111111, %ebx
        movl    $0x22222222, %esi
        movl    $0x33333333, %edi
        movl    $0x44444444, %ebp
        call    *%eax
        movl    20(%esp), %ecx
        movl    20(%ecx), %edx
        movl    %ebx, 0(%edx)
        movl    %esi, 4(%edx)
        movl    %edi, 8(%edx)
        movl    %ebp, 12(%edx)
        movl    %ecx, %ebp
        leal    -12(%ebp), %esp
        popl    %edi
        popl    %esi
        popl    %ebx
        popl    %ebp
        ret
        .size   call_on_skewed_stack, .-call_on_skewed_stack
)");
