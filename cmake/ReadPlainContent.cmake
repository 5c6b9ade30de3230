# cmake -DINPUT=... -DOUTPUT=... -P ReadPlainContent.cmake
#
# Lets the XML parser that bison has generated read plain content in one go: in front of each
# decision of a state where content may follow, XpPlainContent takes what it can. See there.
#
# A version of bison whose skeleton reads differently stops the build here.
file(READ "${INPUT}" text)
set(anchor "  /* First try to decide what to do without reference to lookahead token.  */\n")
string(FIND "${text}" "${anchor}" first)
string(FIND "${text}" "${anchor}" last REVERSE)
if(first EQUAL -1 OR NOT first EQUAL last)
  message(FATAL_ERROR "${INPUT}: not the skeleton that is known here")
endif()
string(REPLACE "${anchor}" "  if (yychar == XP_XPEMPTY && plainContent.isEntry (yystate))
    {
      yy_state_t *yytop = plainContent.read (theParser, yyssp, yyss + yystacksize);
      yyvsp += yytop - yyssp;
      yyssp = yytop;
      yystate = *yyssp;
    }

${anchor}" text "${text}")
set(anchor "  yychar = XP_XPEMPTY; /* Cause a token to be read.  */\n")
string(FIND "${text}" "${anchor}" first)
if(first EQUAL -1)
  message(FATAL_ERROR "${INPUT}: not the skeleton that is known here")
endif()
string(REPLACE "${anchor}" "${anchor}  const lumnis::XpPlainContent& plainContent = xpplainContent ();\n" text "${text}")
file(WRITE "${OUTPUT}" "${text}")
