// The built-in sample: a site with its inspection visits, a lookup list of site states and a link
// from the STATE property to it.
#pragma once

namespace varnex::cli {

inline constexpr const char* kSampleDocument = R"(<TALVEN>
  <DOMAIN>
    <STATES CODE="ST" DESC="States of a site">
      <ITEM><CODE>OPEN</CODE><DESC>Open to visitors</DESC></ITEM>
      <ITEM><CODE>CLOSED</CODE><DESC>Closed</DESC></ITEM>
    </STATES>
  </DOMAIN>
  <PROPERTY_DOMAINS><STATE>STATES</STATE></PROPERTY_DOMAINS>
  <COMPONENT>
    <SITE>
      <PROPERTIES>
        <NAME xml:space="preserve">North field</NAME>
        <STATE xml:space="preserve">OPEN</STATE>
      </PROPERTIES>
      <ATTACHMENTS><MAP persist="true"><GRID>A4</GRID></MAP></ATTACHMENTS>
      <COLLECTION>
    <VISITS>
      <COMPONENT><VISIT><PROPERTIES>
        <DATE xml:space="preserve">2026-03-01</DATE><INSPECTOR xml:space="preserve">Ames</INSPECTOR><PASSED xml:space="preserve">yes</PASSED>
      </PROPERTIES></VISIT></COMPONENT>
      <COMPONENT><VISIT><PROPERTIES>
        <DATE xml:space="preserve">2026-05-14</DATE><INSPECTOR xml:space="preserve">Berg</INSPECTOR><PASSED xml:space="preserve">no</PASSED>
      </PROPERTIES></VISIT></COMPONENT>
      <COMPONENT><VISIT><PROPERTIES>
        <DATE xml:space="preserve">2026-09-30</DATE><INSPECTOR xml:space="preserve">Ames</INSPECTOR><PASSED xml:space="preserve">No</PASSED>
      </PROPERTIES></VISIT></COMPONENT>
    </VISITS>
      </COLLECTION>
    </SITE>
  </COMPONENT>
</TALVEN>)";

}  // namespace varnex::cli
