# cmake -DINPUT=... -DOUTPUT=... -P PassUnitReductions.cmake
#
# Lets a parser that bison has generated pass through rules that only hand a value up, such as
# "LogicalOr: LogicalAnd", in a short loop. The generated loop takes them one by one at some forty
# instructions each, and an operand climbs through fifteen of them. States, look-ahead and actions
# stay what they are: the inserted line does what the loop would do.
#
# The grammar includes WscUnitReductions.h, which does it.
include(${CMAKE_CURRENT_LIST_DIR}/PatchParser.cmake)
file(READ "${INPUT}" text)
lumnis_insert(text
  "  YY_ASSERT (0 <= yystate && yystate < YYNSTATES);\n" BEHIND
  "  if (yyss < yyssp)
    yystate = passUnitReductions<YYNSTATES> (yystate, yyssp[-1], yychar,
                                  UnitReductionTables {yypact, yydefact, yypgoto, yydefgoto, yytable,
                                    yycheck, yyr1, yyr2, yytranslate, YYPACT_NINF, YYLAST, YYNTOKENS});
")
file(WRITE "${OUTPUT}" "${text}")
