# cmake -DINPUT=... -DOUTPUT=... -P ReadPlainContent.cmake
#
# Lets the XML parser that bison has generated read plain content in one go: in front of each
# decision of a state where content may follow, XpPlainContent takes what it can. See there.
include(${CMAKE_CURRENT_LIST_DIR}/PatchParser.cmake)
file(READ "${INPUT}" text)
lumnis_insert(text
  "  /* First try to decide what to do without reference to lookahead token.  */\n" BEFORE
  "  if (yychar == XP_XPEMPTY && plainContent.isEntry (yystate))
    {
      yy_state_t *yytop = plainContent.read (theParser, yyssp, yyss + yystacksize);
      yyvsp += yytop - yyssp;
      yyssp = yytop;
      yystate = *yyssp;
    }

")
lumnis_insert(text
  "  yychar = XP_XPEMPTY; /* Cause a token to be read.  */\n" BEHIND
  "  const lumnis::XpPlainContent& plainContent = xpplainContent ();\n")
file(WRITE "${OUTPUT}" "${text}")
