"""Checks that programs were built with the protections of cmake/Hardening.cmake.

Usage: check.py PROGRAM...
"""

import re
import subprocess
import sys


def output(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout


def problems_of(program):
    header = output("readelf", "-hW", program)
    segments = output("readelf", "-lW", program)
    dynamic = output("readelf", "-dW", program)
    symbols = output("readelf", "-W", "--dyn-syms", program)
    if "DYN (Position-Independent Executable file)" not in header:
        yield "is loaded at a fixed address"
    if not re.search(r"GNU_STACK .* RW +0x", segments):
        yield "has an executable stack"
    if re.search(r"\b(LOAD|GNU_RELRO) .* RWE ", segments):
        yield "has memory that is writable and executable"
    if "GNU_RELRO" not in segments or not re.search(r"FLAGS.*\bNOW\b", dynamic):
        yield "leaves the table of its library functions writable"
    if re.search(r"\((RPATH|RUNPATH|TEXTREL)\)", dynamic):
        yield "looks for libraries in folders of its own, or is changed when it is loaded"
    if "__stack_chk_fail" not in symbols:
        yield "has no stack protector"
    if not re.search(r"__\w+_chk@", symbols.replace("__stack_chk_fail", "")):
        yield "is not fortified"
    if "X86-64" in header:
        yield from problems_of_code(output("objdump", "-d", "--no-show-raw-insn", program))


def problems_of_code(code):
    """What can be seen only in the machine code; for x86-64."""
    functions = re.findall(r"^[0-9a-f]+ <_Z(?:N5zorva\w*|\w*5zorva\w*)>:\n\s*[0-9a-f]+:\t(\w+)", code, re.M)
    if len(functions) < 20:
        yield "has no functions of ours"
    # The compiler leaves the mark out of functions that are only called directly, hence the half.
    if functions.count("endbr64") < len(functions) / 2:
        yield "does not mark where it may be jumped to"


def main():
    wrong = [(program, problem) for program in sys.argv[1:] for problem in problems_of(program)]
    for program, problem in wrong:
        print("%s %s" % (program, problem))
    return 1 if wrong or len(sys.argv) < 2 else 0


if __name__ == "__main__":
    sys.exit(main())
