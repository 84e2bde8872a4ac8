#!/usr/bin/env bash
# The manual's check sees each way in which a link, a page or a topic can lead nowhere.
set -u
check=manual
. "$(dirname "$0")/faults.sh"

picture=docs/manual/images/window.png
index='# The manual\n\n[One](one.md), [its end](one.md#the-end-of-it)\n\n![Picture](images/window.png)\n'
write README.md '# Program\n\n[Manual](docs/manual/index.md)\n'
write docs/design.md '# Design\n\n[Up](../README.md#program), [here](#design), [away](https://example.org/none.md)\n'
write docs/manual/index.md "$index"
write docs/manual/one.md '# One\n\n## The end of it\n\n[Two](two.md "the second")\n'
write docs/manual/two.md '# Two\n\n[Back](index.md)\n'
write docs/manual/topics.txt '# Topics\n\ncontents index.md\nfrmOne.Two one.md#the-end-of-it\n'
write "$picture" ''
passes "a clean manual"

write docs/wild.md '[Lost](lost.md)\n'
sees "a link to a page that is not there" docs/wild.md
write docs/wild.md '![Lost](manual/images/lost.png)\n'
sees "an image that is not there" docs/wild.md
write docs/wild.md 'Text [one](manual/one.md), [Lost](manual/one.md#lost)\n'
sees "a link to a heading that is not there, behind a good one" docs/wild.md
write docs/wild.md '# Wild\n\n[Lost](#tame)\n'
sees "the same within a page" docs/wild.md
write docs/wild.md 'A `[link](in.code)`.\n\n```\n[link](in.code)\n```\n\n    [link](in.code)\n\n    [link](in.code)\n'
passes "what looks like links, in code"
rm "$tree/docs/wild.md"

write docs/manual/wild.md '# Wild\n\n[Index](index.md)\n'
sees "a page to which nothing leads" docs/manual/wild.md
write docs/manual/two.md '# Two\n\n[Design](../design.md)\n'
sees "a link out of the manual" docs/manual/two.md
write docs/absent ''
sees "a page that is gone" docs/absent
write docs/manual/two.md '# Two\n'
passes "the page put back"

write docs/manual/topics.txt 'contents lost.md\n'
sees "a topic without its page" docs/manual/topics.txt
write docs/absent ''
sees "no topics at all" docs/absent
write docs/manual/topics.txt 'contents index.md#lost\n'
sees "a topic without its heading" docs/manual/topics.txt
write docs/manual/topics.txt 'contents\n'
sees "a topic that names no page" docs/manual/topics.txt
write docs/manual/topics.txt 'contents index.md one.md\n'
sees "a topic that names two" docs/manual/topics.txt
write docs/manual/topics.txt 'contents index.md\n'
passes "one topic"

rm -r "$tree/docs/manual"
sees "no manual" README.md
