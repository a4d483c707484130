# Writes the IDL text (IDL) as a C++ string constant into OUT, for the fuzz target's type
# information. The text is split into pieces, as a single literal may not be arbitrarily long.
file(READ ${IDL} text)
string(LENGTH "${text}" length)
set(pieces "")
set(at 0)
while(at LESS length)
  string(SUBSTRING "${text}" ${at} 2000 piece)
  string(APPEND pieces "R\"idl(${piece})idl\"\n")
  math(EXPR at "${at} + 2000")
endwhile()
file(WRITE ${OUT} "extern const char kServerIdl[];\nconst char kServerIdl[] =\n${pieces};\n")
