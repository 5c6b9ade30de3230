# awk -v name=lumnis-encode -v version=0.1.0 -v verbs="encode;compile" -f ManPage.awk HELP
#
# A help text of lumnis as a man page. The form of the text: examples, an empty line, a description,
# the usage, then sections, each a title with a colon and indented lines. Options and verbs stand
# in column 3, what they mean in column 25 or deeper.

function safe(text) {
    gsub(/\\/, "\\e", text)
    gsub(/-/, "\\-", text)
    if (text ~ /^[.']/) text = "\\&" text
    return text
}

function trimmed(text) {
    sub(/^ +/, "", text)
    sub(/ +$/, "", text)
    return text
}

function addExample(line,    split_at) {
    split_at = match(line, /   +/)
    if (split_at > 0) {
        examples = examples ".TP\n.B " safe(substr(line, 1, split_at - 1)) "\n" \
                   safe(trimmed(substr(line, split_at))) "\n"
    } else {
        examples = examples (examples == "" ? "" : ".PP\n") ".B " safe(line) "\n"
    }
}

BEGIN { state = "examples" }

/^Examples:$/ { state = "examples"; next }
/^Usage: / {
    usage = substr($0, 8)
    state = "usage"
    next
}
/^[A-Z][A-Za-z ]*:$/ {
    state = "section"
    title = toupper(substr($0, 1, length($0) - 1))
    body = body ".SH " (title == "VERBS" ? "VERBS" : title) "\n"
    next
}
/^$/ {
    if (state == "examples" && examples != "") state = "description"
    else if (state == "section") state = "text"
    next
}
state == "examples" { addExample(trimmed($0)); next }
state == "description" { description = description (description == "" ? "" : "\n") $0; next }
state == "section" && title != "EXIT STATUS" {
    if (match($0, /^  [^ ]/)) {
        item = substr($0, 3)
        at = match(item, /   *[^ ]/)
        # Two blanks or the column end the item.
        if (length($0) >= 24 && substr($0, 24, 1) == " " || length($0) > 24 && at > 0) {
            head = trimmed(substr($0, 3, 22))
            body = body ".TP\n.B " safe(head) "\n" safe(trimmed(substr($0, 25))) "\n"
        } else {
            body = body ".TP\n.B " safe(trimmed(item)) "\n"
        }
    } else {
        body = body safe(trimmed($0)) "\n"
    }
    next
}
state == "section" && /^   / { body = body safe(trimmed($0)) "\n"; next }
state == "section" {
    # A status, and what it means.
    body = body ".TP\n.B " safe($1) "\n" safe(trimmed(substr($0, index($0, $1) + length($1)))) "\n"
    next
}
state == "text" {
    if (!has_notes++) body = body ".SH NOTES\n"
    body = body safe(trimmed($0)) "\n"
    next
}

END {
    # The first line tells the purpose; the name section of a page has neither capital nor full stop.
    split(description, first, "\n")
    purpose = first[1]
    sub(/\.$/, "", purpose)
    if (purpose !~ /^[A-Z][A-Z]/) purpose = tolower(substr(purpose, 1, 1)) substr(purpose, 2)
    printf ".TH %s 1 \"\" \"lumnisutil %s\" \"User Commands\"\n", toupper(name), version
    printf ".SH NAME\n%s \\- %s\n", name, safe(purpose)
    printf ".SH SYNOPSIS\n.B %s\n", safe(usage)
    printf ".SH DESCRIPTION\n%s\n", safe(description)
    printf ".SH EXAMPLES\n%s", examples
    printf "%s", body
    printf ".SH SEE ALSO\n"
    count = split(verbs, verb, ";")
    if (name != "lumnis") printf ".BR lumnis (1),\n"
    for (i = 1; i <= count; ++i) {
        if (name != "lumnis-" verb[i]) printf ".BR lumnis\\-%s (1),\n", verb[i]
    }
    printf ".BR WMLEncode (3),\n.BR WMLSCompile (3)\n"
}
