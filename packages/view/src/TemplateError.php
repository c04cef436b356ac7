<?php

declare(strict_types=1);

namespace Zorvel;

use RuntimeException;
use Zorvel\Syntax\Tag;

/** Why there is no page. The message is composed as "order.tpl:12: Missing closing tag". */
final class TemplateError extends RuntimeException
{
    public function __construct(
        private readonly string $template,
        private readonly string $reason,
        private readonly ?Tag $tag = null,
    ) {
        parent::__construct(($tag === null ? $template : "$template:$tag->line") . ": $reason");
    }

    /** The template at fault, by the name it was given or included by. */
    public function getTemplate(): string
    {
        return $this->template;
    }

    /** From 1; null when no line of the template is at fault, or it cannot be told. */
    public function getTemplateLine(): ?int
    {
        return $this->tag?->line;
    }

    /** The message without the place. */
    public function getReason(): string
    {
        return $this->reason;
    }

    /** The tag at fault. */
    public function getTag(): ?Tag
    {
        return $this->tag;
    }
}
