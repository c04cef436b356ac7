Dear {order::customer::name}{optional order::customer::company} of {order::customer::company}{/optional},

thank you for your order {order::number} of {date}.
{dynamic l,order::lines}
  {l::*::amount} x {l::*::title}: {l::*::sum} EUR{optional l::*::gift}
      with the card "{l::*::gift}"{/optional}{/dynamic}

  Total: {total} EUR

{optional order::shipping post}It comes by post.{/optional}{optional order::shipping pickup}It waits for you at the counter.{/optional}
{dynamic hints}
* {*}{/dynamic}
