# cmake -DINPUT=... -DOUTPUT=... -P PassUnitReductions.cmake
#
# Lets a parser that bison has generated pass through rules that only hand a value up, such as
# "LogicalOr: LogicalAnd", in a short loop. The generated loop takes them one by one at some forty
# instructions each, and an operand climbs through fifteen of them. States, look-ahead and actions
# stay what they are: the inserted line does what the loop would do.
#
# The grammar includes WscUnitReductions.h, which does it. A version of bison whose skeleton reads
# differently stops the build here.
file(READ "${INPUT}" text)
set(anchor "  YY_ASSERT (0 <= yystate && yystate < YYNSTATES);\n")
string(FIND "${text}" "${anchor}" first)
string(FIND "${text}" "${anchor}" last REVERSE)
if(first EQUAL -1 OR NOT first EQUAL last)
  message(FATAL_ERROR "${INPUT}: not the skeleton that is known here")
endif()
string(REPLACE "${anchor}" "${anchor}  if (yyss < yyssp)
    yystate = passUnitReductions<YYNSTATES> (yystate, yyssp[-1], yychar, theParser,
                                  UnitReductionTables {yypact, yydefact, yypgoto, yydefgoto, yytable,
                                    yycheck, yyr1, yyr2, yytranslate, YYPACT_NINF, YYLAST, YYNTOKENS});
" text "${text}")
file(WRITE "${OUTPUT}" "${text}")
