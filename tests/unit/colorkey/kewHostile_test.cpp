#include <filesystem>

#include "colorkey/colorKey.h"
#include "colorkey/kewFile.h"
#include "colorkey/kewSyntax.h"
#include "colorkey/kewText.h"
#include "colorkey/xmlCharacters.h"
#include "unit/colorkey/KewTest.h"
#include "util/lastError.h"

namespace {

using ModColor::GetKewCol;

class KewHostile : public KewTest {
 protected:
  // What reading gives for exactly these bytes. A save on a document that cannot be read must
  // fail, say so and leave it as it was.
  int32_t read(const std::string& bytes) const {
    const std::string name = write(bytes);
    util::LastError.clear();
    const int32_t count = GetKewCol(name);
    if (count == -1) {
      EXPECT_EQ(util::LastError, "");
      ModColor::SaveExistingKew(name, "salt");
      EXPECT_EQ(util::LastError.find("ModColor SaveExistingKew: 5, KelvaneCtl, The file is no "
                                     "well-formed XML document: "),
                0U)
          << util::LastError;
      EXPECT_EQ(contentsOf(name), bytes);
      EXPECT_EQ(folderContents(), std::vector<std::string>{"a.kew"});
    }
    return count;
  }
};

// A document with a key between two pieces of text.
std::string around(const std::string& before, const std::string& behind = "") {
  return before + smallKew() + behind;
}

// A document with something in its document element, before the key.
std::string within(const std::string& content) {
  return smallKew().insert(std::string("<section>").size(), content);
}

std::string stored(const std::string& ascii, std::size_t size, bool bigEndian) {
  std::string bytes;
  for (const char letter : ascii) {
    std::string unit(size, '\0');
    unit[bigEndian ? size - 1 : 0] = letter;
    bytes += unit;
  }
  return bytes;
}

std::string declared(const std::string& encoding) {
  return "<?xml version='1.0' encoding='" + encoding + "'?>";
}

TEST_F(KewHostile, DocumentsInOrderAreRead) {
  std::string deepest, ends;
  for (int depth = 2; depth <= ModColor::kDeepestElement; ++depth) {
    deepest += "<n>";
    ends += "</n>";
  }
  const std::string documents[] = {
      smallKew(),
      around(" \n<!-- a --><?b?>\n", "<!-- c -->\n<?d e?> "),
      around("<?xml version='1.0'?>"),
      around("<?xml version = \"1.1\" encoding='utf-8' standalone='yes' ?>\r\n"),
      around("<?xml-stylesheet type='text/xsl' href='a.xsl'?>"),
      within("<a/><b />"),
      within("<a x='1' y=\"'\"\n z = '\"'></a\n>"),
      within("<_:-.9/><a:b c:d='e'/><\xC3\xA9l\xC3\xA9ment \xE6\xB8\xA9='x'/>"),
      within("&lt;&gt;&amp;&quot;&apos;&#65;&#x1F600;&#0000000000000000065;"),
      within("> ]] ]>'\"--?><!-- <x & > ]]> --><![CDATA[<x & ]] > --> <!-- ]]><?x <y & ?>"),
      within("<!----><!-- - --><!-->-->"),
      within("\xF0\x9F\x98\x80\xC2\x80\xEF\xBF\xBD\x7F"),
      within(deepest + ends),
      within(std::string(200000, '\n')),
      within("<a x='&#10;&#9;&#13;\r\n'/>")};
  for (const std::string& document : documents) EXPECT_EQ(read(document), 1) << document;
}

TEST_F(KewHostile, WhatIsNoDocumentIsNoKey) {
  const std::string documents[] = {
      "",
      " ",
      "<",
      "text",
      "<!-- only a comment -->",
      around("text"),
      around("", "text"),
      around("&#32;"),
      around("<![CDATA[ ]]>"),
      around("", "<section/>"),
      around("<a/>"),
      around("", "</section>"),
      around(" <?xml version='1.0'?>"),
      around("", "<?xml version='1.0'?>"),
      around("<?xml?>"),
      around("<?xml ?>"),
      around("<?xml encoding='UTF-8'?>"),
      around("<?xml version='1.0' version='1.0'?>"),
      around("<?xml version='1.0' standalone='yes' encoding='UTF-8'?>"),
      around("<?xml version='1.0' standalone='maybe'?>"),
      around("<?xml version='1.0' other='x'?>"),
      around("<?xml version='2.0'?>"),
      around("<?xml version='1.'?>"),
      around("<?xml version=1.0?>"),
      around("<?xml version='1.0'encoding='UTF-8'?>"),
      around("<?xml version='1.0' encoding=''?>"),
      around("<?xml version='1.0'>"),
      around("<?XML version='1.0'?>"),
      around("<!DOCTYPE section>"),
      around("<!doctype section>"),
      within("<!DOCTYPE section>"),
      within("<?xml version='1.0'?>"),
      within("<?XmL x?>"),
      within("<? x?>"),
      within("<?>"),
      within("<?a"),
      within("<?a+b?>"),
      within("<!-- a -- b -->"),
      within("<!-- a --->"),
      within("<!-->"),
      within("<!--->"),
      within("<!- a -->"),
      within("<![CDATA[ x"),
      within("<![cdata[ ]]>"),
      within("<![CDATA x]]>"),
      within("]]>"),
      within("& "),
      within("&"),
      within("&;"),
      within("&nbsp;"),
      within("&AMP;"),
      within("&amp"),
      within("& amp;"),
      within("&#;"),
      within("&#x;"),
      within("&#X41;"),
      within("&#-1;"),
      within("&#6a;"),
      within("&#0;"),
      within("&#1;"),
      within("&#xD800;"),
      within("&#xFFFF;"),
      within("&#x110000;"),
      within("&#4294967361;"),
      within("&#18446744073709551681;"),
      within("<a"),
      within("<a>"),
      within("</a>"),
      within("<a></b>"),
      within("<a><b></a></b>"),
      within("<a></a b='c'>"),
      within("<a></ a>"),
      within("< a/>"),
      within("<a / >"),
      within("<a/ >"),
      within("<1/>"),
      within("<-a/>"),
      within("<a+b/>"),
      within("<\xC3\x97/>"),
      within("<a\xC3\x97/>"),
      within("<a b/>"),
      within("<a b=/>"),
      within("<a b=c/>"),
      within("<a b='c/>"),
      within("<a b='c\"/>"),
      within("<a b='<'/>"),
      within("<a b='&'/>"),
      within("<a b='&x;'/>"),
      within("<a b='&amp'/>"),
      within("<a b='1'c='2'/>"),
      within("<a b='1' b='2'/>"),
      within("<a b='1' c='3' b='1'></a>"),
      within("<a 1='2'/>"),
      within("<a 'b'/>"),
      within("<>"),
      within("</>"),
      within("<=/>"),
      within(std::string(1, '\0')),
      within("\x01"),
      within("\x1B"),
      within("\xEF\xBF\xBE"),
      within("\x80"),
      within("\xC3"),
      within("\xC0\x80"),
      within("\xC1\xBF"),
      within("\xE0\x9F\xBF"),
      within("\xED\xA0\x80"),
      within("\xF0\x8F\xBF\xBF"),
      within("\xF4\x90\x80\x80"),
      within("\xF8\x88\x80\x80\x80"),
      within("\xFF"),
      smallKew() + "\xC3",
      smallKew() + std::string(1, '\0')};
  for (const std::string& document : documents) EXPECT_EQ(read(document), -1) << document;
}

TEST_F(KewHostile, EntitiesAreNeverExpandedAndNothingElseIsRead) {
  std::string bomb = "<!DOCTYPE section [<!ENTITY a0 'aaaaaaaaaa'>";
  for (int i = 1; i < 10; ++i) {
    const std::string before = "&a" + std::to_string(i - 1) + ";";
    bomb += "<!ENTITY a" + std::to_string(i) + " '";
    for (int n = 0; n < 10; ++n) bomb += before;
    bomb += "'>";
  }
  const std::string other = write("1", "other.txt");
  EXPECT_EQ(GetKewCol(write(bomb + "]>" + within("&a9;"))), -1);
  EXPECT_EQ(GetKewCol(write("<!DOCTYPE section [<!ENTITY x SYSTEM 'file://" + other + "'>]>" +
                            within("&x;"))),
            -1);
  EXPECT_EQ(GetKewCol(write("<!DOCTYPE section SYSTEM '" + other + "'>" + smallKew())), -1);
  EXPECT_EQ(util::LastError, "");
}

TEST_F(KewHostile, EveryUnicodeEncodingIsRead) {
  struct Row {
    std::size_t size;
    bool bigEndian;
    std::string mark, encoding;
  };
  using namespace std::string_literals;
  const Row rows[] = {{1, false, "\xEF\xBB\xBF", "UTF-8"},
                      {2, false, "\xFF\xFE", "UTF-16LE"},
                      {2, true, "\xFE\xFF", "UTF-16BE"},
                      {4, false, "\xFF\xFE\0\0"s, "UTF-32LE"},
                      {4, true, "\0\0\xFE\xFF"s, "UTF-32BE"}};
  for (const Row& row : rows) {
    const auto bytes = [&](const std::string& text) {
      return stored(text, row.size, row.bigEndian);
    };
    const std::string whole = row.encoding.substr(0, row.encoding.find_first_of("LB"));
    EXPECT_EQ(read(row.mark + bytes(smallKew())), 1) << row.encoding;
    EXPECT_EQ(read(bytes(smallKew())), 1) << row.encoding;
    for (const std::string& named : {row.encoding, whole}) {
      EXPECT_EQ(read(row.mark + bytes(declared(named) + smallKew())), 1) << named;
      EXPECT_EQ(read(bytes(declared(named) + "\r\n" + smallKew())), 1) << named;
    }
    EXPECT_EQ(read(row.mark + row.mark + bytes(smallKew())), -1) << "a mark is no white space";
    for (const char* wrong : {"ISO-8859-1", "UTF-7", "US-ASCII", "windows-1252"}) {
      EXPECT_EQ(read(row.mark + bytes(declared(wrong) + smallKew())), -1) << wrong;
    }
    for (const Row& other : rows) {
      if (other.size == row.size && other.bigEndian == row.bigEndian) continue;
      EXPECT_EQ(read(row.mark + bytes(declared(other.encoding) + smallKew())), -1)
          << row.encoding << " declared as " << other.encoding;
    }
    for (std::size_t cut = 1; cut < row.size; ++cut) {
      const std::string all = row.mark + bytes(smallKew());
      EXPECT_EQ(read(all.substr(0, all.size() - cut)), -1) << row.encoding;
    }
  }
}

TEST_F(KewHostile, CharactersOutsideOfTheFirstPlaneAreReadInEveryEncoding) {
  show("\xF0\x9F\x98\x80");
  const std::string open = "<variable name='", close = "'/>";
  const auto file = [&](std::size_t size, bool big, const std::string& name) {
    return stored(open, size, big) + name + stored(close, size, big);
  };
  using namespace std::string_literals;
  EXPECT_EQ(GetKewCol(write(file(1, false, "\xF0\x9F\x98\x80"))), 0);
  EXPECT_EQ(GetKewCol(write(file(2, false, "\x3D\xD8\x00\xDE"s))), 0);
  EXPECT_EQ(GetKewCol(write(file(2, true, "\xD8\x3D\xDE\x00"s))), 0);
  EXPECT_EQ(GetKewCol(write(file(4, false, "\x00\xF6\x01\x00"s))), 0);
  EXPECT_EQ(GetKewCol(write(file(4, true, "\x00\x01\xF6\x00"s))), 0);
  for (const std::string& half : {"\xD8\x3D"s, "\xDE\x00"s, "\xDE\x00\xD8\x3D"s, "\xFF\xFE"s}) {
    EXPECT_EQ(read(file(2, true, half)), -1);
  }
  for (const std::string& none : {"\x00\x11\x00\x00"s, "\x00\x00\xD8\x00"s, "\xFF\x01\xF6\x00"s}) {
    EXPECT_EQ(read(file(4, true, none)), -1);
  }
}

TEST_F(KewHostile, NarrowEncodingsAreReadWhereTheyAreDeclared) {
  show("caf\xC3\xA9");
  const std::string latin = "<section><variable name='caf\xE9'/></section>";
  EXPECT_EQ(read(declared("ISO-8859-1") + latin), 0);
  EXPECT_EQ(read(declared("iso-8859-1") + latin), 0);
  EXPECT_EQ(read(declared("US-ASCII") + "<section><variable name='caf&#xe9;'/></section>"), 0);
  EXPECT_EQ(read(latin), -1);
  for (const char* encoding : {"UTF-8", "US-ASCII", "latin-1", "windows-1252", "UTF-16", "x"}) {
    EXPECT_EQ(read(declared(encoding) + latin), -1) << encoding;
  }
  EXPECT_EQ(read("<?xml2 encoding='ISO-8859-1'?>" + latin), -1) << "no declaration";
}

TEST_F(KewHostile, ElementsThatAreNestedTooDeeplyAreRefusedWithAWord) {
  std::string open, close;
  for (int depth = 0; depth < 10000; ++depth) {
    open += "<group>";
    close += "</group>";
  }
  const std::string reason = ": 5, KelvaneCtl, The file's elements are nested too deeply";
  for (const std::string& deep : {open, open + close, "<!-- --><![CDATA[]]>" + open + close}) {
    const std::string document = within(deep);
    const std::string name = write(document);
    EXPECT_EQ(GetKewCol(name), -1);
    EXPECT_EQ(util::LastError, "ModColor GetKewCol" + reason);
    ModColor::SaveExistingKew(name, "temp");
    EXPECT_EQ(util::LastError, "ModColor SaveExistingKew" + reason);
    EXPECT_EQ(contentsOf(name), document);
  }
}

TEST_F(KewHostile, ADocumentCutAnywhereIsNoKey) {
  const std::string whole = declared("UTF-8") + "<!-- c --><section a='&lt;'><?p i?>" +
                            "<variable name=\"t\xC3\xA9mp\"><![CDATA[x]]>&#65;" +
                            division("1", "2", "255") + "</variable></section>";
  show("t\xC3\xA9mp");
  ASSERT_EQ(read(whole), 1);
  for (std::size_t length = 0; length < whole.size(); ++length) {
    ASSERT_EQ(read(whole.substr(0, length)), -1) << length;
  }
}

// Whatever one byte becomes: never a crash, and what is taken for a document can be saved.
TEST_F(KewHostile, ADocumentWithAnyByteChangedIsReadOrRefused) {
  const std::string whole = "<?xml version='1.0'?><section><!--c--><variable name=\"temp\">" +
                            division("1", "2", "255") + "</variable><a b='&lt;'>]]</a></section>";
  std::vector<std::string> documents;
  for (std::size_t at = 0; at < whole.size(); ++at) {
    for (const char byte : {'\0', '\xFF', '<', '>', '&', '"', '\'', '/', '!', '?', '-', ' ', 'x'}) {
      std::string changed = whole;
      changed[at] = byte;
      try {
        ModColor::checkKewSyntax(ModColor::kewText(changed));
        documents.push_back(changed);
      } catch (const ModColor::KewMalformed&) {
      }
    }
  }
  EXPECT_GT(documents.size(), 150U);
  for (std::size_t n = 0; n < documents.size(); n += 3) {  // a save waits for the disk
    const std::string file = write(documents[n]);
    show("temp");
    GetKewCol(file);
    ModColor::NewColorKey();
    util::LastError.clear();
    ModColor::SaveExistingKew(file, "other");
    ASSERT_EQ(util::LastError, "") << documents[n];
    show("other");
    ASSERT_EQ(GetKewCol(file), 0) << documents[n];
  }
}

}  // namespace
