<?xml version="1.0" encoding="utf-8"?>
<feed xmlns="http://www.w3.org/2005/Atom">
  <title>{htmlspecialchars name}</title>
  <id>{htmlspecialchars url}/</id>
  <link rel="self" href="{htmlspecialchars url}/feed.xml"/>
  <updated>{articles::0::updated articles::0::published}</updated>{dynamic a,articles}
  <entry>
    <title>{htmlspecialchars a::*::title}</title>
    <id>{url}/{rawurlencode a::*::slug}</id>
    <link href="{url}/{rawurlencode a::*::slug}"/>
    <published>{a::*::published}</published>
    <updated>{a::*::updated a::*::published}</updated>
    <author><name>{a::*::author name}</name></author>
    <content type="text">{htmlspecialchars a::*::text}</content>
  </entry>{/dynamic}
</feed>
