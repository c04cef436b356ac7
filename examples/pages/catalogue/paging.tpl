<p>{optional previous}
  <a rel="prev" href="?category={rawurlencode category}&amp;page={rawurlencode previous}">previous</a>{/optional}{dynamic p,pages}
  {optional p::*::current}<b>{p::*::number}</b>{/optional}{!optional p::*::current}<a href="?category={rawurlencode category}&amp;page={rawurlencode p::*::number}">{p::*::number}</a>{/optional}{/dynamic}{optional next}
  <a rel="next" href="?category={rawurlencode category}&amp;page={rawurlencode next}">next</a>{/optional}
</p>
